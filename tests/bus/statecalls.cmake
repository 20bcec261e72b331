# What the module and its services say to each other, read off the wire.
set(hungassistant_kind REALTIME SANITIZERS) # measures milliseconds
foreach(test statecontract statereads shortcutlookup pagecalls hungassistant)
    assistant_add_test(${test} TIER bus BUSES ${${test}_kind}
        SOURCES ${test}.cpp
        LIBRARIES assistantcontrol test-support)
endforeach()

# Without BUSES, and away from the buses of whoever runs it.
assistant_add_test(withoutbus TIER bus
    SOURCES withoutbus.cpp
    LIBRARIES assistantcontrol test-support
    ENVIRONMENT "DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent/session;DBUS_SYSTEM_BUS_ADDRESS=unix:path=/nonexistent/system;XDG_CONFIG_HOME=/nonexistent/config")
