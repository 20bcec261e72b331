# The shell functions behind the entry points in scripts/.
find_program(BASH_PROGRAM bash REQUIRED)
add_test(NAME unit.scriptprocesses
    COMMAND "${BASH_PROGRAM}" "${CMAKE_CURRENT_SOURCE_DIR}/scriptprocesses.sh" "${PROJECT_SOURCE_DIR}")
add_test(NAME unit.scriptusage
    COMMAND "${BASH_PROGRAM}" "${CMAKE_CURRENT_SOURCE_DIR}/scriptusage.sh" "${PROJECT_SOURCE_DIR}")
set_tests_properties(unit.scriptprocesses unit.scriptusage PROPERTIES LABELS unit TIMEOUT 60)
