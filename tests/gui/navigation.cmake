# The module's navigation list.
assistant_add_test(navigationlist TIER gui
    SOURCES navigationlist.cpp
    LIBRARIES assistantcontrol test-support)
