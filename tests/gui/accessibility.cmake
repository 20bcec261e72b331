# Every page in every state: what assistive technologies see of it, and whether its texts fit.
foreach(topic tree texts)
    assistant_add_test(accessibility${topic} TIER gui BUSES
        SOURCES accessibility${topic}.cpp accessibilitypages.cpp
        LIBRARIES controlcenterwindow assistantcontrol test-support)
endforeach()

# Assistive technologies choose in the toolkit's lists.
assistant_add_test(accessibilitychoice TIER gui BUSES
    SOURCES accessibilitychoice.cpp
    LIBRARIES assistantcontrol)

# What fails tests on warnings does so, and only on those that it should.
add_test(NAME gui.warningfails
    COMMAND "${PROJECT_SOURCE_DIR}/tests/support/without-warnings"
        echo "QWARN  : Page::opens() QObject::connect: no such signal")
add_test(NAME gui.expectedwarningpasses
    COMMAND "${PROJECT_SOURCE_DIR}/tests/support/without-warnings"
        echo "QWARN  : Page::opens(one (1)) This plugin does not support propagateSizeHints()")
set_tests_properties(gui.warningfails PROPERTIES LABELS gui WILL_FAIL TRUE)
set_tests_properties(gui.expectedwarningpasses PROPERTIES LABELS gui)
