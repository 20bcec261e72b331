assistant_add_test(voicetestpanel TIER gui BUSES
    SOURCES voicetestpanel.cpp
    LIBRARIES assistantcontrol test-support
    DEPENDS sandbox-networkmanager sandbox-aiservice)
