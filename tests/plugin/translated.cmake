# The built module with its compiled catalogues, one process per locale: what the user reads.

# Exports its symbols, since it stands in for a function of QtCore.
add_executable(translatedhost translatedhost.cpp)
assistant_configure_target(translatedhost)
set_target_properties(translatedhost PROPERTIES ENABLE_EXPORTS ON)
target_link_libraries(translatedhost PRIVATE Qt5::Widgets zcc)
target_compile_definitions(translatedhost PRIVATE
    MODULE_FILE="$<TARGET_FILE:assistant-control-plugin>"
    CATALOGUES="${ASSISTANT_QM_DIR}")
add_dependencies(translatedhost assistant-control-plugin translations)

assistant_add_test(translatedmodule TIER plugin BUSES
    SOURCES translatedmodule.cpp
    LIBRARIES Qt5::Core translationsreader
    DEPENDS translatedhost)
target_compile_definitions(translatedmodule PRIVATE
    SOURCE_ROOT="${PROJECT_SOURCE_DIR}"
    TRANSLATED_HOST="$<TARGET_FILE:translatedhost>")
