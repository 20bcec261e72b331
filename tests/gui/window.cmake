# The sandbox's control-center window, apart from the module.

assistant_add_test(windowsearch TIER unit
    SOURCES windowsearch.cpp LIBRARIES controlcenterwindow)
assistant_add_test(windowframe TIER gui
    SOURCES windowframe.cpp LIBRARIES controlcenterwindow)
assistant_add_test(windownavigation TIER gui
    SOURCES windownavigation.cpp LIBRARIES controlcenterwindow)
