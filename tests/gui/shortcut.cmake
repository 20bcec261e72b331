foreach(test shortcutcaps shortcutrow shortcutrough)
    assistant_add_test(${test} TIER gui
        SOURCES ${test}.cpp shortcutparts.h
        LIBRARIES assistantcontrol)
endforeach()

# The sandbox's page of shortcuts on the real keybinding service.
assistant_add_test(shortcutspage TIER gui BUSES
    SOURCES shortcutspage.cpp shortcutparts.h
    LIBRARIES controlcenterwindow assistantcontrol test-support)
