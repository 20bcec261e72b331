# Compile options of every target of this project, put on targets with assistant_configure_target().

option(ASSISTANT_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)
option(ASSISTANT_FAST_BUILD "Read headers once, link quickly: for builds that stay here" OFF)

# Gives a target the project's warnings, hidden symbols, and relative source paths in its binary; and in fast
# builds a set of precompiled headers, "test" or the usual one.
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
    if(ASSISTANT_FAST_BUILD AND NOT target MATCHES "-headers$")
        set(headers ${ARGN})
        if(NOT headers)
            set(headers usual)
        endif()
        target_precompile_headers(${target} REUSE_FROM ${headers}-headers)
    endif()
    assistant_unite_sources(${target})
endfunction()

# Compiles the sources of a target together in fast builds, and of what surrounds the module in all: most of
# the work is in what they include. Names of one file must for this be unique in the whole target. With
# -DCMAKE_UNITY_BUILD=OFF each source shows that it includes what it needs.
function(assistant_unite_sources target)
    if(DEFINED CMAKE_UNITY_BUILD
            OR NOT (ASSISTANT_FAST_BUILD
                OR CMAKE_CURRENT_SOURCE_DIR MATCHES "^${PROJECT_SOURCE_DIR}/(bench|sandbox|tests)"))
        return()
    endif()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 10)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "/qrc_[^/]*\\.cpp$") # all of them use the same names
    if(sources)
        set_source_files_properties(${sources} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endif()
endfunction()

# A set of headers, compiled once: they are most of what a compiler reads here. Builds that may leave the
# machine are made without, and so show that every source includes what it needs.
function(assistant_add_headers name)
    cmake_parse_arguments(arg "" "" "LIBRARIES;HEADERS" ${ARGN})
    set(source "${PROJECT_BINARY_DIR}/${name}headers.cpp")
    if(NOT EXISTS "${source}") # a newer one would be compiled again with each configuration
        file(WRITE "${source}" "")
    endif()
    add_library(${name}-headers OBJECT "${source}")
    set_target_properties(${name}-headers PROPERTIES AUTOMOC OFF)
    assistant_configure_target(${name}-headers)
    target_link_libraries(${name}-headers PRIVATE ${arg_LIBRARIES})
    # Not linked: what a library defines must not be defined here when not every user has it.
    foreach(library Core Gui Widgets DBus)
        target_include_directories(${name}-headers SYSTEM PRIVATE
            $<TARGET_PROPERTY:Qt5::${library},INTERFACE_INCLUDE_DIRECTORIES>)
    endforeach()
    target_compile_definitions(${name}-headers PRIVATE $<$<NOT:$<CONFIG:Debug>>:QT_NO_DEBUG>)
    target_precompile_headers(${name}-headers PRIVATE
        <QApplication> <QDBusConnection> <QDBusMessage> <QDBusPendingReply> <QDBusReply> <QDebug>
        <QHash> <QLabel> <QMap> <QPainter> <QPointer> <QTimer> <QVBoxLayout> <QVector> <QWidget>
        ${arg_HEADERS})
endfunction()

# What every test links. The headers of Qt's test library look at what these define.
set(assistant_test_libraries Qt5::Test Qt5::Widgets Qt5::Network)

if(ASSISTANT_FAST_BUILD)
    assistant_add_headers(usual)
    if(BUILD_TESTING)
        assistant_add_headers(test LIBRARIES ${assistant_test_libraries} HEADERS <QtTest>)
    endif()
    # The usual linker takes three times as long.
    find_program(GOLD_LINKER ld.gold)
    if(GOLD_LINKER)
        add_link_options(-fuse-ld=gold)
    endif()
endif()
