# The sandbox's services and the recorder of the bus.
foreach(test assistantservice busrecorder desktopservices dockservice sandboxcontrol)
    assistant_add_test(${test}_test TIER bus BUSES
        SOURCES services/${test}_test.cpp
        LIBRARIES test-support)
endforeach()
target_compile_definitions(sandboxcontrol_test PRIVATE
    SANDBOX_CONTROL="$<TARGET_FILE:sandbox-control>")
