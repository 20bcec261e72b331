# Developer targets: "format" writes the layout of all C++, "check" finds what does not keep the style: its
# parts are format-check, lint (lint-module, lint-doctor and lint-around), clazy, shellcheck, flake8 and
# cmake-lint. The tools are those of Debian 12.

file(GLOB_RECURSE cpp_files CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}"
    bench/*.h bench/*.cpp bus/*.h bus/*.cpp doctor/*.h doctor/*.cpp pages/*.h pages/*.cpp
    platform/*.h platform/*.cpp plugin/*.h plugin/*.cpp proxy/*.h proxy/*.cpp sandbox/*.h sandbox/*.cpp
    tests/*.h tests/*.cpp voice/*.h voice/*.cpp)
file(GLOB_RECURSE cmake_files CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}"
    CMakeLists.txt cmake/*.cmake */CMakeLists.txt)
list(FILTER cmake_files EXCLUDE REGEX "^build/")
file(GLOB_RECURSE other_files CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}"
    .ci/* bench/* doctor/* sandbox/* scripts/* tests/*)
set(shell_files)
set(python_files)
foreach(file ${other_files})
    file(STRINGS "${file}" first_line LIMIT_COUNT 1)
    if(first_line MATCHES "^#!/bin/(ba)?sh")
        list(APPEND shell_files "${file}")
    elseif(file MATCHES "\\.py$" OR first_line MATCHES "^#!.*python")
        list(APPEND python_files "${file}")
    endif()
endforeach()

add_custom_target(check)

# Adds the target NAME, which runs COMMAND; its first word is a program of the Debian package PACKAGE. What
# finds fault, and changes nothing, is part of "check".
function(assistant_add_tool name)
    cmake_parse_arguments(arg "CHECK" "PACKAGE" "COMMAND" ${ARGN})
    list(GET arg_COMMAND 0 program)
    find_program(tool_${program} ${program})
    if(tool_${program})
        list(REMOVE_AT arg_COMMAND 0)
        add_custom_target(${name} COMMAND "${tool_${program}}" ${arg_COMMAND}
            WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" VERBATIM)
    else()
        add_custom_target(${name}
            COMMAND ${CMAKE_COMMAND} -E echo "${name} needs the Debian package ${arg_PACKAGE}"
            COMMAND ${CMAKE_COMMAND} -E false VERBATIM)
    endif()
    if(arg_CHECK)
        add_dependencies(check ${name})
    endif()
endfunction()

assistant_add_tool(format PACKAGE clang-format-16 COMMAND clang-format-16 -i ${cpp_files})
assistant_add_tool(format-check CHECK PACKAGE clang-format-16
    COMMAND clang-format-16 --dry-run --Werror ${cpp_files})
# What the scripts source is checked with them.
assistant_add_tool(shellcheck CHECK PACKAGE shellcheck
    COMMAND shellcheck --external-sources --check-sourced ${shell_files})
# E203 forbids the usual way to write a slice of expressions.
assistant_add_tool(flake8 CHECK PACKAGE flake8
    COMMAND flake8 --max-line-length=110 --extend-ignore=E203 ${python_files})
# Not looked at: names of variables, comments on each function, in each branch, indentation of arguments.
assistant_add_tool(cmake-lint CHECK PACKAGE cmake-format
    COMMAND cmake-lint --suppress-decorations --line-width 115
            --disabled-codes C0103 C0111 C0113 C0307 -- ${cmake_files})

# clang cannot read headers that another compiler has precompiled, so it precompiles its own: it finds them
# beside those. What the sources include of a build is made for it.
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(lint_folder "${PROJECT_BINARY_DIR}/lint")
file(MAKE_DIRECTORY "${lint_folder}")
add_custom_target(lint-commands
    COMMAND sed "s/ -Winvalid-pch//" "${PROJECT_BINARY_DIR}/compile_commands.json"
            > "${lint_folder}/compile_commands.json"
    VERBATIM)
add_dependencies(lint-commands autogen)
foreach(headers usual-headers test-headers)
    if(NOT TARGET ${headers})
        continue()
    endif()
    string(TOUPPER "${CMAKE_BUILD_TYPE}" build_type)
    separate_arguments(flags UNIX_COMMAND
        "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${build_type}} -std=c++${CMAKE_CXX_STANDARD}")
    set(source "${PROJECT_BINARY_DIR}/CMakeFiles/${headers}.dir/cmake_pch.hxx")
    set(directories $<TARGET_PROPERTY:${headers},INCLUDE_DIRECTORIES>)
    set(definitions $<TARGET_PROPERTY:${headers},COMPILE_DEFINITIONS>)
    add_custom_command(OUTPUT "${source}.pch"
        COMMAND clang++-14 ${flags} -fPIC -fvisibility=hidden -fvisibility-inlines-hidden
            "$<$<BOOL:${directories}>:-isystem;$<JOIN:${directories},;-isystem;>>"
            "$<$<BOOL:${definitions}>:-D$<JOIN:${definitions},;-D>>"
            -Wno-pragma-system-header-outside-header -x c++-header "${source}" -o "${source}.pch"
        DEPENDS ${headers} # they are written for it
        COMMAND_EXPAND_LISTS VERBATIM)
    add_custom_target(lint-${headers} DEPENDS "${source}.pch")
    add_dependencies(lint-commands lint-${headers})
endforeach()
add_custom_target(lint)
add_dependencies(check lint)

# Adds the target NAME, which looks at the sources in FOLDERS of the project, a regular expression, and where
# fast builds unite them, at what lies in UNITED_FOLDERS of the build. What they include of the project is
# looked at, too. Further arguments are clang-tidy's.
set(lint_header_filter
    "^${PROJECT_SOURCE_DIR}/(bench|bus|doctor|pages|platform|plugin|proxy|sandbox|tests|voice)/")
function(assistant_add_lint name folders united_folders)
    assistant_add_tool(${name} PACKAGE clang-tidy
        COMMAND run-clang-tidy -quiet -p "${lint_folder}" "-header-filter=${lint_header_filter}" ${ARGN}
            "^(${PROJECT_SOURCE_DIR}/(${folders})/|${PROJECT_BINARY_DIR}/(${united_folders})/.*Unity/)")
    add_dependencies(${name} lint-commands)
    add_dependencies(lint ${name})
endfunction()

assistant_add_lint(lint-module "bus|pages|platform|plugin|proxy|voice"
    "CMakeFiles/assistantcontrol.dir|CMakeFiles/shortcutwidgets.dir|platform")
assistant_add_lint(lint-doctor "doctor" "doctor")
# Names and modern forms only: the long analyses are for what runs in somebody else's process.
assistant_add_lint(lint-around "bench|sandbox|tests" "bench|sandbox|tests"
    "-checks=-bugprone-*,-clang-analyzer-*,-performance-*")

# clang-tidy's counterpart for Qt, each source of the module by itself.
file(GLOB clazy_files CONFIGURE_DEPENDS bus/*.cpp pages/*.cpp plugin/*.cpp proxy/*.cpp voice/*.cpp)
set(clazy_folders $<TARGET_PROPERTY:assistantcontrol,INCLUDE_DIRECTORIES>)
set(clazy_definitions $<TARGET_PROPERTY:assistantcontrol,COMPILE_DEFINITIONS>)
file(GENERATE OUTPUT "${lint_folder}/clazy/compile_flags.txt" CONTENT
    "-std=c++17\n-fPIC\n-Werror\n-I$<JOIN:${clazy_folders},\n-I>\n-D$<JOIN:${clazy_definitions},\n-D>\n")
assistant_add_tool(clazy CHECK PACKAGE clazy
    COMMAND clazy-standalone -p "${lint_folder}/clazy" "--header-filter=${lint_header_filter}"
            --checks=level1 ${clazy_files})
