# Microphone, capture, AI service and audio daemon together, on a real sound server.

assistant_require_pkgconfig(PULSE libpulse libpulse-dev)
add_library(virtualmicrophone STATIC
    "${PROJECT_SOURCE_DIR}/tests/support/virtualmicrophone.cpp"
    "${PROJECT_SOURCE_DIR}/tests/support/recordingstreams.cpp")
assistant_configure_target(virtualmicrophone)
target_compile_definitions(virtualmicrophone PRIVATE
    MICROPHONE_SCRIPT="${PROJECT_SOURCE_DIR}/sandbox/microphone/start"
    RECORDINGS="${PROJECT_BINARY_DIR}/sandbox/microphone")
target_link_libraries(virtualmicrophone PUBLIC test-support PRIVATE PkgConfig::PULSE)
add_dependencies(virtualmicrophone sandbox-recordings)

assistant_add_test(microphonevoicetest TIER e2e BUSES SANITIZERS TIMEOUT 300
    SOURCES microphonevoicetest.cpp
    LIBRARIES assistantcontrol virtualmicrophone spokenrecording)
assistant_add_test(microphonenone TIER e2e BUSES
    SOURCES microphonenone.cpp
    LIBRARIES assistantcontrol virtualmicrophone)
assistant_add_test(microphonechange TIER e2e BUSES
    SOURCES microphonechange.cpp
    LIBRARIES zframeworkdbus virtualmicrophone)
assistant_add_test(microphonelost TIER e2e BUSES
    SOURCES microphonelost.cpp
    LIBRARIES assistantcontrol virtualmicrophone
    DEPENDS sandbox-networkmanager sandbox-aiservice)

assistant_add_test(voicetestends TIER e2e BUSES SANITIZERS
    SOURCES voicetestends.cpp
    LIBRARIES virtualmicrophone
    DEPENDS sandbox-networkmanager sandbox-voicescript fakeaudioplugin voicetestexit)
assistant_add_test(microphoneopen TIER e2e BUSES SANITIZERS
    SOURCES microphoneopen.cpp
    LIBRARIES assistantcontrol virtualmicrophone
    DEPENDS sandbox-networkmanager sandbox-voicescript sandbox-keybinding voicetestexit)

# Ends in the middle of a voice test; run by the two tests above.
add_executable(voicetestexit voicetestexit.cpp)
assistant_configure_target(voicetestexit)
target_link_libraries(voicetestexit PRIVATE assistantcontrol scriptedaudio)
foreach(test voicetestends microphoneopen)
    target_compile_definitions(${test} PRIVATE
        "VOICETESTEXIT_PROGRAM=\"$<TARGET_FILE:voicetestexit>\"")
endforeach()
