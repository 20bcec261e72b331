# scripts/run builds and runs build/dev: from another build it would test, and build, what is not its own.
if(PROJECT_BINARY_DIR STREQUAL "${PROJECT_SOURCE_DIR}/build/dev")
    add_test(NAME e2e.firstcommand
        COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/firstcommand" "${PROJECT_SOURCE_DIR}")
    set_tests_properties(e2e.firstcommand PROPERTIES TIMEOUT 120)
    add_test(NAME e2e.scriptinterrupts
        COMMAND /usr/bin/python3 -B "${CMAKE_CURRENT_SOURCE_DIR}/scriptinterrupts.py"
            "${PROJECT_SOURCE_DIR}")
    set_tests_properties(e2e.scriptinterrupts PROPERTIES TIMEOUT 600)
    add_test(NAME e2e.scriptwindow
        COMMAND /usr/bin/python3 -B "${CMAKE_CURRENT_SOURCE_DIR}/scriptwindow.py"
            "${PROJECT_SOURCE_DIR}")
    set_tests_properties(e2e.scriptwindow PROPERTIES TIMEOUT 200)
    set_tests_properties(e2e.firstcommand e2e.scriptinterrupts e2e.scriptwindow PROPERTIES
        LABELS "e2e;realtime"
        RUN_SERIAL TRUE)
endif()
