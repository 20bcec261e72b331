# A hundred voice tests in a row on one page.

assistant_add_test(hundredruns TIER e2e BUSES TIMEOUT 300
    SOURCES hundredruns.cpp
    LIBRARIES assistantcontrol virtualmicrophone)
