assistant_add_test(test_voicetestverdict TIER unit
    SOURCES test_voicetestverdict.cpp
    LIBRARIES assistantcontrol)
