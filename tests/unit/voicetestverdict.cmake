assistant_add_test(voicetestverdict TIER unit
    SOURCES voicetestverdict.cpp
    LIBRARIES assistantcontrol)
