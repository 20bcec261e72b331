# What the sandbox's window knows of the services.

assistant_add_test(windowservices TIER bus BUSES
    SOURCES windowservices.cpp
    LIBRARIES controlcenterwindow test-support)
