# SPDX-License-Identifier: GPL-3.0-or-later
# Common compile settings for every target of the project.
function(nubo_defaults target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
    if(NUBO_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(NUBO_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-omit-frame-pointer
                                                 -fno-sanitize-recover=undefined)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
endfunction()

# A static library of the project, core or ui alike: what it links is in DEPS, which users of
# its headers get too, and PRIVATE_DEPS, which its headers never expose (TagLib, libgsf).
# Which Qt modules a core library may link is checked by the layering test.
function(nubo_library target)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPS;PRIVATE_DEPS" ${ARGN})
    add_library(${target} STATIC ${ARG_SOURCES})
    target_include_directories(${target} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/..)
    target_link_libraries(${target} PUBLIC ${ARG_DEPS} PRIVATE ${ARG_PRIVATE_DEPS})
    nubo_defaults(${target})
endfunction()

# An executable placed in the runnable application folder.
function(nubo_app_executable target)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPS" ${ARGN})
    add_executable(${target} ${ARG_SOURCES})
    target_link_libraries(${target} PRIVATE ${ARG_DEPS})
    set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${NUBO_APP_DIR})
    # Bind every symbol at start-up, so relocations can be made read-only (Debian's hardening).
    target_link_options(${target} PRIVATE $<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)
    nubo_defaults(${target})
endfunction()

# One QtTest executable registered with CTest; widget tests run on the offscreen platform.
function(nubo_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE Qt6::Test ${ARG_DEPS})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    nubo_defaults(${name})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;NUBO_FIXTURES=${PROJECT_SOURCE_DIR}/../shared/fixtures;NUBO_SOURCE_DIR=${PROJECT_SOURCE_DIR};NUBO_APP_DIR=${NUBO_APP_DIR}"
        TIMEOUT 300)
endfunction()
