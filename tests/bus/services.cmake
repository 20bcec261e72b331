# The sandbox's services, and what tests share.
foreach(test busrecorder dockservice)
    assistant_add_test(${test}_test TIER bus BUSES
        SOURCES services/${test}_test.cpp
        LIBRARIES test-support)
endforeach()
