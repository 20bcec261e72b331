# Compile options of every target of this project, put on targets with assistant_configure_target().

option(ASSISTANT_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)
option(ASSISTANT_PRECOMPILED_HEADERS "Read Qt's headers once for all sources, not once for each" OFF)

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
    if(ASSISTANT_PRECOMPILED_HEADERS AND NOT target STREQUAL "precompiled-headers")
        target_precompile_headers(${target} REUSE_FROM precompiled-headers)
    endif()
endfunction()

# Qt's headers, compiled once: they are most of what a compiler reads here. Builds that may leave the
# machine are made without, and so show that every source includes what it needs.
if(ASSISTANT_PRECOMPILED_HEADERS)
    set(source "${PROJECT_BINARY_DIR}/precompiledheaders.cpp")
    if(NOT EXISTS "${source}") # a newer one would be compiled again with each configuration
        file(WRITE "${source}" "")
    endif()
    add_library(precompiled-headers OBJECT "${source}")
    set_target_properties(precompiled-headers PROPERTIES AUTOMOC OFF)
    assistant_configure_target(precompiled-headers)
    # Not linked: what a library defines must not be defined here, since not every user has it.
    foreach(library Core Gui Widgets DBus)
        target_include_directories(precompiled-headers SYSTEM PRIVATE
            $<TARGET_PROPERTY:Qt5::${library},INTERFACE_INCLUDE_DIRECTORIES>)
    endforeach()
    target_precompile_headers(precompiled-headers PRIVATE
        <QApplication> <QDBusConnection> <QDBusMessage> <QDBusPendingReply> <QDBusReply> <QDebug>
        <QHash> <QLabel> <QMap> <QPainter> <QPointer> <QTimer> <QVBoxLayout> <QVector> <QWidget>)
endif()
