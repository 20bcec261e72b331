# The built module, as a host meets it. The hosts here link the module's interface and Qt, never the
# module itself: what they see came out of the file.

function(assistant_add_host_test name)
    assistant_add_test(${name} TIER plugin ${ARGN}
        LIBRARIES test-support
        DEPENDS assistant-control-plugin)
    target_compile_definitions(${name} PRIVATE
        MODULE_FILE="$<TARGET_FILE:assistant-control-plugin>"
        SOURCE_ROOT="${PROJECT_SOURCE_DIR}")
endfunction()

assistant_add_host_test(moduleinterface SOURCES moduleinterface.cpp)

find_program(NM_PROGRAM nm REQUIRED) # binutils; a compiler needs it, too
assistant_add_host_test(modulefile SOURCES modulefile.cpp)
target_compile_definitions(modulefile PRIVATE NM_PROGRAM="${NM_PROGRAM}")

assistant_add_host_test(modulehost SOURCES modulehost.cpp BUSES)
# Leaks of a library that is gone have no names, so the one that the module has on purpose cannot be
# told apart; modulehost looks for the others.
assistant_add_host_test(moduleicons SOURCES moduleicons.cpp BUSES)
assistant_add_host_test(moduleunload SOURCES moduleunload.cpp BUSES
    ENVIRONMENT "ASAN_OPTIONS=detect_leaks=0")
add_dependencies(moduleunload sandbox-networkmanager)

# Says which catalogue the module asked for; run by the test once per locale. Its symbols must be
# exported, since it stands in for two functions of QtCore.
add_executable(localehost localehost.cpp)
assistant_configure_target(localehost)
set_target_properties(localehost PROPERTIES ENABLE_EXPORTS ON)
target_link_libraries(localehost PRIVATE Qt5::Widgets zcc ${CMAKE_DL_LIBS})
target_compile_definitions(localehost PRIVATE MODULE_FILE="$<TARGET_FILE:assistant-control-plugin>")
add_dependencies(localehost assistant-control-plugin)
assistant_add_host_test(modulelocale SOURCES modulelocale.cpp)
add_dependencies(modulelocale localehost)
target_compile_definitions(modulelocale PRIVATE LOCALE_HOST="$<TARGET_FILE:localehost>")

# These reach into the module's classes, so they link them. Memory is filled when it is freed: Qt's own
# use of a deleted widget, which no sanitizer sees, then ends the test.
assistant_add_test(modulereentrancy TIER plugin BUSES
    SOURCES modulereentrancy.cpp
    LIBRARIES assistantcontrol test-support
    ENVIRONMENT "MALLOC_PERTURB_=85" "ASAN_OPTIONS=max_free_fill_size=4096")
