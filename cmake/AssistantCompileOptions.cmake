# Compile options of every target of this project, put on targets with assistant_configure_target().

option(ASSISTANT_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)

# Gives a target the project's warnings, hidden symbols, and relative source paths in its binary.
function(assistant_configure_target target)
    set_target_properties(${target} PROPERTIES
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Woverloaded-virtual -Wnon-virtual-dtor
        $<$<BOOL:${ASSISTANT_WARNINGS_AS_ERRORS}>:-Werror>
        -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=
        -ffile-prefix-map=${PROJECT_BINARY_DIR}/=)
    target_compile_definitions(${target} PRIVATE
        QT_MESSAGELOGCONTEXT   # log lines keep file, line and function in release builds too
        QT_DISABLE_DEPRECATED_BEFORE=0x050A00)
endfunction()
