# The sandbox's AI service: what it does with audio, without the bus.

assistant_add_test(aiservicequality TIER unit
    SOURCES aiservicequality.cpp
    LIBRARIES sandbox-hearing spokenrecording)

assistant_add_test(aiservicerecognition TIER unit TIMEOUT 300
    SOURCES aiservicerecognition.cpp
    LIBRARIES sandbox-hearing spokenrecording
    DEPENDS sandbox-phrasemodel)
target_compile_definitions(aiservicerecognition PRIVATE
    PHRASE_MODEL="${PROJECT_BINARY_DIR}/sandbox/services/phrasemodel")

assistant_add_test(aiservicestreams TIER unit
    SOURCES aiservicestreams.cpp
    LIBRARIES sandbox-hearing)
