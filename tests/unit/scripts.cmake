# The shell functions behind the entry points in scripts/.
find_program(BASH_PROGRAM bash REQUIRED)
foreach(test scriptprocesses scriptservices scriptusage)
    add_test(NAME unit.${test} COMMAND "${BASH_PROGRAM}"
        "${CMAKE_CURRENT_SOURCE_DIR}/${test}.sh" "${PROJECT_SOURCE_DIR}")
    set_tests_properties(unit.${test} PROPERTIES LABELS unit TIMEOUT 60)
endforeach()
