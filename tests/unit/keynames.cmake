assistant_add_test(keynames TIER unit
    SOURCES keynames.cpp
    LIBRARIES assistantcontrol)
assistant_add_test(keynamesgrabbed TIER unit
    SOURCES keynamesgrabbed.cpp
    LIBRARIES controlcenterwindow assistantcontrol)
