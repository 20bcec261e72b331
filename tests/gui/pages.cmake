# The four settings pages, on the services they talk to.
foreach(test pageform pageactions assistantpage)
    assistant_add_test(${test} TIER gui BUSES
        SOURCES ${test}.cpp pagelog.h
        LIBRARIES assistantcontrol test-support)
endforeach()
target_link_libraries(assistantpage PRIVATE Qt5::GuiPrivate) # keys through the window system's queue
