assistant_add_test(showntext TIER unit
    SOURCES showntext.cpp
    LIBRARIES assistantcontrol)
