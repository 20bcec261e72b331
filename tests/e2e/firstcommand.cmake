# scripts/run builds and runs build/dev: from another build it would test, and build, what is not its own.
if(PROJECT_BINARY_DIR STREQUAL "${PROJECT_SOURCE_DIR}/build/dev")
    add_test(NAME e2e.firstcommand
        COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/firstcommand" "${PROJECT_SOURCE_DIR}")
    set_tests_properties(e2e.firstcommand PROPERTIES
        LABELS "e2e;realtime"
        RUN_SERIAL TRUE
        TIMEOUT 120)
endif()
