# Microphone, capture, AI service and audio daemon together, on a real sound server.

add_library(virtualmicrophone STATIC
    "${PROJECT_SOURCE_DIR}/tests/support/virtualmicrophone.cpp")
assistant_configure_target(virtualmicrophone)
target_compile_definitions(virtualmicrophone PRIVATE
    MICROPHONE_SCRIPT="${PROJECT_SOURCE_DIR}/sandbox/microphone/start")
target_link_libraries(virtualmicrophone PUBLIC test-support)

assistant_add_test(test_microphonevoicetest TIER e2e BUSES SANITIZERS TIMEOUT 300
    SOURCES microphonevoicetest.cpp
    LIBRARIES assistantcontrol virtualmicrophone spokenrecording)
assistant_add_test(test_microphonenone TIER e2e BUSES
    SOURCES microphonenone.cpp
    LIBRARIES assistantcontrol virtualmicrophone)
assistant_add_test(test_microphonechange TIER e2e BUSES
    SOURCES microphonechange.cpp
    LIBRARIES zframeworkdbus virtualmicrophone)
assistant_add_test(test_microphonelost TIER e2e BUSES
    SOURCES microphonelost.cpp
    LIBRARIES assistantcontrol virtualmicrophone
    DEPENDS sandbox-networkmanager sandbox-aiservice)
