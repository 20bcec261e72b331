# The built window and module on a display with an accessibility bus, real services and a microphone.
# The tests are scripts: what they look at is not theirs to link.

function(assistant_add_desktop_test name script)
    add_test(NAME e2e.${name}
        # Debian's own interpreter has the bindings of the accessibility bus.
        COMMAND "${PROJECT_SOURCE_DIR}/tests/support/with-buses" /usr/bin/python3 -B "${script}")
    set_tests_properties(e2e.${name} PROPERTIES
        LABELS "e2e;realtime"
        RUN_SERIAL TRUE
        TIMEOUT 400
        ENVIRONMENT "LC_ALL=C.UTF-8;PYTHONWARNINGS=ignore::DeprecationWarning;PYTHONPATH=${CMAKE_CURRENT_SOURCE_DIR}/accessibility;CONTROL_CENTER=$<TARGET_FILE:control-center>;MODULE_FILE=$<TARGET_FILE:assistant-control-plugin>;SERVICES_DIR=${PROJECT_BINARY_DIR}/sandbox/services;MICROPHONE_SCRIPT=${PROJECT_SOURCE_DIR}/sandbox/microphone/start;SANDBOX_RECORDINGS=${PROJECT_BINARY_DIR}/sandbox/microphone;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/lsan.supp;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()

assistant_add_desktop_test(accessibility
    "${CMAKE_CURRENT_SOURCE_DIR}/accessibility/accessibility_test.py")
assistant_add_desktop_test(keyboard "${CMAKE_CURRENT_SOURCE_DIR}/keyboard/keyboard_test.py")
