# The network check of the voice test, against the real NetworkManager.

assistant_add_test(networkcheck TIER e2e BUSES
    LAUNCHER "${CMAKE_CURRENT_SOURCE_DIR}/real-networkmanager"
    SOURCES networkcheck.cpp
    LIBRARIES assistantcontrol test-support)
