assistant_add_test(keynames TIER unit
    SOURCES keynames.cpp
    LIBRARIES assistantcontrol)
