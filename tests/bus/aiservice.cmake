# Sanitizers keep freed memory for a while; little enough here that a leak shows beside it.
assistant_add_test(aiservicesessions TIER bus BUSES TIMEOUT 240
    SOURCES aiservicesessions.cpp
    LIBRARIES test-support spokenrecording
    ENVIRONMENT "ASAN_OPTIONS=quarantine_size_mb=2:thread_local_quarantine_size_kb=64")
