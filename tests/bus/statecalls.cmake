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

# The buses end while the module works; that is a program of its own, started once for each moment.
find_package(Threads REQUIRED)
add_executable(busends-operation busendsoperation.cpp cuttablebus.cpp)
assistant_configure_target(busends-operation)
target_link_libraries(busends-operation
    PRIVATE assistantcontrol test-support scriptedaudio Threads::Threads)
add_dependencies(busends-operation fakeaudioplugin)
assistant_add_test(busends TIER bus BUSES TIMEOUT 600
    SOURCES busends.cpp
    LIBRARIES test-support
    DEPENDS busends-operation sandbox-voicescript)
target_compile_definitions(busends PRIVATE
    BUS_ENDS_OPERATION="$<TARGET_FILE:busends-operation>")
