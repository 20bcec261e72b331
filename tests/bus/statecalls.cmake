# What the module and its services say to each other, read off the wire.
foreach(test statecontract statereads shortcutlookup pagecalls hungassistant)
    assistant_add_test(${test} TIER bus BUSES
        SOURCES ${test}.cpp
        LIBRARIES assistantcontrol test-support)
endforeach()
