assistant_add_test(test_aiservicesessions TIER bus BUSES
    SOURCES aiservicesessions.cpp
    LIBRARIES test-support spokenrecording)
