# What the module and its services say to each other, read off the wire.
foreach(test statecontract statereads shortcutlookup)
    assistant_add_test(${test} TIER bus BUSES
        SOURCES ${test}.cpp
        LIBRARIES assistantcontrol test-support)
endforeach()
