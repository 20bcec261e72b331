# The sandbox's AI service: what it does with audio, without the bus.

add_library(spokenrecording STATIC
    "${PROJECT_SOURCE_DIR}/tests/support/spokenrecording.cpp")
assistant_configure_target(spokenrecording)
target_include_directories(spokenrecording PUBLIC "${PROJECT_SOURCE_DIR}")
target_link_libraries(spokenrecording PUBLIC Qt5::Core)
target_compile_definitions(spokenrecording PRIVATE
    RECORDING_SCRIPT="${PROJECT_SOURCE_DIR}/sandbox/microphone/recording")

assistant_add_test(test_aiservicequality TIER unit
    SOURCES aiservicequality.cpp
    LIBRARIES sandbox-hearing spokenrecording)

assistant_add_test(test_aiservicerecognition TIER unit
    SOURCES aiservicerecognition.cpp
    LIBRARIES sandbox-hearing spokenrecording
    DEPENDS sandbox-phrasemodel)
target_compile_definitions(test_aiservicerecognition PRIVATE
    PHRASE_MODEL="${PROJECT_BINARY_DIR}/sandbox/services/phrasemodel")

assistant_add_test(test_aiservicestreams TIER unit
    SOURCES aiservicestreams.cpp
    LIBRARIES sandbox-hearing)
