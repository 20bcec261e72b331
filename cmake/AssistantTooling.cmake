# Developer targets: format, format-check, lint (lint-FOLDER for one folder), shellcheck. The tools are
# those of Debian 12 (LLVM 14).

file(GLOB_RECURSE assistant_format_sources CONFIGURE_DEPENDS
    RELATIVE "${PROJECT_SOURCE_DIR}"
    bus/*.h bus/*.cpp plugin/*.h plugin/*.cpp proxy/*.h proxy/*.cpp pages/*.h pages/*.cpp voice/*.h voice/*.cpp
    platform/*.h platform/*.cpp sandbox/*.h sandbox/*.cpp tests/*.h tests/*.cpp
    bench/*.h bench/*.cpp tools/*.h tools/*.cpp)

find_program(CLANG_FORMAT NAMES clang-format-16)
find_program(RUN_CLANG_TIDY NAMES run-clang-tidy-14 run-clang-tidy)
find_program(SHELLCHECK shellcheck)

# A target whose tool is not installed says which Debian package brings it.
function(assistant_missing_tool target package)
    add_custom_target(${target}
        COMMAND ${CMAKE_COMMAND} -E echo "${target} needs the Debian package ${package}"
        COMMAND ${CMAKE_COMMAND} -E false VERBATIM)
endfunction()

if(CLANG_FORMAT)
    add_custom_target(format
        COMMAND "${CLANG_FORMAT}" -i ${assistant_format_sources}
        WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" VERBATIM)
    add_custom_target(format-check
        COMMAND "${CLANG_FORMAT}" --dry-run --Werror ${assistant_format_sources}
        WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" VERBATIM)
else()
    assistant_missing_tool(format clang-format-16)
    assistant_missing_tool(format-check clang-format-16)
endif()

set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
add_custom_target(lint)
foreach(folder bus plugin proxy pages voice platform)
    if(RUN_CLANG_TIDY)
        add_custom_target(lint-${folder}
            COMMAND "${RUN_CLANG_TIDY}" -quiet -p "${PROJECT_BINARY_DIR}"
                    "${PROJECT_SOURCE_DIR}/${folder}/.*"
            WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" USES_TERMINAL VERBATIM)
    else()
        assistant_missing_tool(lint-${folder} clang-tidy)
    endif()
    add_dependencies(lint lint-${folder})
endforeach()

# What the scripts source is checked with them.
if(SHELLCHECK)
    file(GLOB_RECURSE files CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}"
        .ci/* sandbox/* scripts/* tests/*)
    set(scripts)
    foreach(file ${files})
        file(STRINGS "${file}" first_line LIMIT_COUNT 1)
        if(first_line MATCHES "^#!/bin/(ba)?sh")
            list(APPEND scripts "${file}")
        endif()
    endforeach()
    add_custom_target(shellcheck
        COMMAND "${SHELLCHECK}" --external-sources --check-sourced ${scripts}
        WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" VERBATIM)
else()
    assistant_missing_tool(shellcheck shellcheck)
endif()
