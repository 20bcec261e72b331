assistant_add_test(themeswitch TIER gui BUSES
    SOURCES themeswitch.cpp
    LIBRARIES assistantcontrol test-support)
