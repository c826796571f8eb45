# What ./test --quick builds; the tests themselves have the label "unit".
add_custom_target(airlume_unit_tests)

# airlume_add_test(NAME tst_x SOURCES tst_x.cpp [LIBRARIES ...] [ENVIRONMENT A=B ...]
#                  [LABELS ...] [TIMEOUT seconds] [ARGUMENTS ...])
#
# One Qt Test executable, run offscreen in a private home, runtime and temporary folder (local
# servers are files there: tests that run in parallel must not meet).
# Without labels it is a unit test.
function(airlume_add_test)
    cmake_parse_arguments(ARG "" "NAME;TIMEOUT" "SOURCES;LIBRARIES;ENVIRONMENT;LABELS;ARGUMENTS"
        ${ARGN})
    add_executable(${ARG_NAME} ${ARG_SOURCES})
    set_target_properties(${ARG_NAME} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests/${ARG_NAME}.d")
    target_include_directories(${ARG_NAME} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_compile_definitions(${ARG_NAME} PRIVATE
        AIRLUME_BUILD_DIR="${PROJECT_BINARY_DIR}"
        AIRLUME_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    target_link_libraries(${ARG_NAME} PRIVATE airlume_options Qt5::Test ${ARG_LIBRARIES})
    if(NOT ARG_LABELS)
        add_dependencies(airlume_unit_tests ${ARG_NAME})
    endif()
    airlume_register_test(NAME ${ARG_NAME} TIMEOUT "${ARG_TIMEOUT}" LABELS ${ARG_LABELS}
        ENVIRONMENT ${ARG_ENVIRONMENT} COMMAND $<TARGET_FILE:${ARG_NAME}> ${ARG_ARGUMENTS})
endfunction()

# airlume_register_test(NAME x COMMAND ... [ENVIRONMENT ...] [LABELS ...] [TIMEOUT seconds])
#
# Any command as a test, in the same private surroundings.
function(airlume_register_test)
    cmake_parse_arguments(ARG "" "NAME;TIMEOUT" "COMMAND;ENVIRONMENT;LABELS" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    if(NOT ARG_LABELS)
        set(ARG_LABELS unit)
    endif()
    add_test(NAME ${ARG_NAME}
        COMMAND "${PROJECT_SOURCE_DIR}/tests/isolated.sh" ${ARG_COMMAND})
    set_tests_properties(${ARG_NAME} PROPERTIES
        TIMEOUT ${ARG_TIMEOUT}
        SKIP_RETURN_CODE 77
        LABELS "${ARG_LABELS}"
        ENVIRONMENT "ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/data/lsan.supp:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1;${ARG_ENVIRONMENT}")
endfunction()
