# airlume_add_fuzz_test(NAME fuzz_x SOURCES <absolute path>... RUNS count [SEEDS <absolute path>...]
#                       [INCLUDE_DIRECTORIES ...] [LIBRARIES Qt5::Core ...] [MAX_LENGTH octets]
#                       [DICTIONARY <absolute path>] [FUZZ_LIBRARY name])
#
# A libFuzzer target (sources with LLVMFuzzerTestOneInput) as a test that tries a bounded number of
# inputs, starting from the seeds. It is built by clang with AddressSanitizer and
# UndefinedBehaviorSanitizer, whatever compiler builds the rest; where clang or its fuzzer runtime
# is missing the test is skipped. It runs in the plain build only: it brings its own sanitizers.
# A library is a target, or the path of a file to link.
function(airlume_add_fuzz_test)
    cmake_parse_arguments(ARG "" "NAME;RUNS;MAX_LENGTH;DICTIONARY;FUZZ_LIBRARY"
        "SOURCES;SEEDS;INCLUDE_DIRECTORIES;LIBRARIES" ${ARGN})
    if(AIRLUME_SANITIZE)
        return()
    endif()
    if(NOT ARG_MAX_LENGTH)
        set(ARG_MAX_LENGTH 4096)
    endif()
    airlume_find_fuzzer()
    if(AIRLUME_FUZZER_MISSING)
        airlume_register_test(NAME ${ARG_NAME} LABELS fuzz
            COMMAND sh -c "echo 'skipped: ${AIRLUME_FUZZER_MISSING}'; exit 77")
        return()
    endif()

    set(program "${CMAKE_CURRENT_BINARY_DIR}/${ARG_NAME}.d/${ARG_NAME}")
    airlume_fuzz_objects(objects FOLDER "${CMAKE_CURRENT_BINARY_DIR}/${ARG_NAME}.d" SOURCES ${ARG_SOURCES}
        INCLUDE_DIRECTORIES ${ARG_INCLUDE_DIRECTORIES} LIBRARIES ${ARG_LIBRARIES})
    set(archive "")
    if(ARG_FUZZ_LIBRARY)
        set(archive "${CMAKE_CURRENT_BINARY_DIR}/lib${ARG_FUZZ_LIBRARY}.a")
    endif()
    set(libraries "")
    foreach(library IN LISTS ARG_LIBRARIES)
        if(TARGET ${library})
            set(library "$<TARGET_FILE:${library}>")
        endif()
        list(APPEND libraries "${library}")
    endforeach()
    add_custom_command(OUTPUT "${program}"
        COMMAND "${AIRLUME_FUZZ_CXX}" ${AIRLUME_FUZZ_FLAGS} -fsanitize=fuzzer ${objects} ${archive}
            ${libraries} -o "${program}"
        DEPENDS ${objects} ${archive}
        COMMAND_EXPAND_LISTS VERBATIM
        COMMENT "Linking the fuzz target ${ARG_NAME}")
    add_custom_target(${ARG_NAME} ALL DEPENDS "${program}")
    if(ARG_FUZZ_LIBRARY)
        add_dependencies(${ARG_NAME} ${ARG_FUZZ_LIBRARY})
    endif()

    # The flags that tests/fuzz/long.sh shares, and the list it chooses from. The seeds are named in
    # a file, so that nothing new is written into the source tree.
    list(JOIN ARG_SEEDS "," seeds)
    file(WRITE "${program}.seeds" "${seeds}")
    set(options -max_len=${ARG_MAX_LENGTH} "-seed_inputs=@${program}.seeds")
    if(ARG_DICTIONARY)
        list(APPEND options "-dict=${ARG_DICTIONARY}")
    endif()
    list(JOIN options "\n" lines)
    file(WRITE "${program}.options" "${lines}\n")
    set_property(GLOBAL APPEND_STRING PROPERTY AIRLUME_FUZZ_TARGETS "${ARG_NAME}\n")
    get_property(targets GLOBAL PROPERTY AIRLUME_FUZZ_TARGETS)
    file(WRITE "${PROJECT_BINARY_DIR}/fuzztargets" "${targets}")

    # A finding ends with 1: the fuzzer's own 77 would count as skipped.
    airlume_register_test(NAME ${ARG_NAME} TIMEOUT 300 LABELS fuzz
        COMMAND "${program}" -runs=${ARG_RUNS} -seed=1 ${options} -timeout=20 -error_exitcode=1
            -verbosity=1 "-artifact_prefix=${program}.")
endfunction()

# airlume_add_fuzz_library(NAME x SOURCES <absolute path>... [INCLUDE_DIRECTORIES ...]
#                          [LIBRARIES Qt5::Core ...])
#
# What several fuzz targets of one folder share, built once for them (FUZZ_LIBRARY x above). A header
# beside a source that has the same name and says Q_OBJECT goes through moc.
function(airlume_add_fuzz_library)
    cmake_parse_arguments(ARG "" "NAME" "SOURCES;INCLUDE_DIRECTORIES;LIBRARIES" ${ARGN})
    airlume_find_fuzzer()
    if(AIRLUME_SANITIZE OR AIRLUME_FUZZER_MISSING)
        return()
    endif()
    foreach(source IN LISTS ARG_SOURCES)
        string(REGEX REPLACE "\\.cpp$" ".h" header "${source}")
        if(EXISTS "${header}")
            file(STRINGS "${header}" objects REGEX "^ *Q_OBJECT")
            if(objects)
                qt5_wrap_cpp(generated "${header}")
                list(APPEND ARG_SOURCES ${generated})
            endif()
        endif()
    endforeach()
    airlume_fuzz_objects(objects FOLDER "${CMAKE_CURRENT_BINARY_DIR}/${ARG_NAME}.d"
        SOURCES ${ARG_SOURCES} INCLUDE_DIRECTORIES ${ARG_INCLUDE_DIRECTORIES}
        LIBRARIES ${ARG_LIBRARIES})
    set(archive "${CMAKE_CURRENT_BINARY_DIR}/lib${ARG_NAME}.a")
    add_custom_command(OUTPUT "${archive}"
        COMMAND "${CMAKE_COMMAND}" -E rm -f "${archive}"
        COMMAND "${CMAKE_AR}" rcs "${archive}" ${objects}
        DEPENDS ${objects} VERBATIM
        COMMENT "Archiving ${ARG_NAME} for the fuzz targets")
    add_custom_target(${ARG_NAME} DEPENDS "${archive}")
endfunction()

# airlume_fuzz_objects(VARIABLE FOLDER f SOURCES ... INCLUDE_DIRECTORIES ... LIBRARIES ...)
#
# Compiles each source into FOLDER by clang with the sanitizers and the fuzzer's instrumentation;
# VARIABLE becomes the list of the object files.
function(airlume_fuzz_objects variable)
    cmake_parse_arguments(ARG "" "FOLDER" "SOURCES;INCLUDE_DIRECTORIES;LIBRARIES" ${ARGN})
    file(MAKE_DIRECTORY "${ARG_FOLDER}")
    list(TRANSFORM ARG_INCLUDE_DIRECTORIES PREPEND "-I")
    foreach(library IN LISTS ARG_LIBRARIES)
        if(TARGET ${library})
            list(APPEND ARG_INCLUDE_DIRECTORIES
                "-isystem$<JOIN:$<TARGET_PROPERTY:${library},INTERFACE_INCLUDE_DIRECTORIES>,$<SEMICOLON>-isystem>")
        endif()
    endforeach()
    set(objects "")
    foreach(source IN LISTS ARG_SOURCES)
        get_filename_component(name "${source}" NAME_WE)
        set(object "${ARG_FOLDER}/${name}.o")
        add_custom_command(OUTPUT "${object}"
            COMMAND ${CMAKE_CXX_COMPILER_LAUNCHER} "${AIRLUME_FUZZ_CXX}" ${AIRLUME_FUZZ_FLAGS}
                -fsanitize=fuzzer-no-link ${ARG_INCLUDE_DIRECTORIES} -MD -MT "${object}"
                -MF "${object}.d" -c "${source}" -o "${object}"
            DEPENDS "${source}" DEPFILE "${object}.d"
            COMMAND_EXPAND_LISTS VERBATIM
            COMMENT "Compiling ${name}.cpp for fuzzing")
        list(APPEND objects "${object}")
    endforeach()
    set(${variable} "${objects}" PARENT_SCOPE)
endfunction()

# Looks for a clang that can build and link fuzz targets, once. Sets AIRLUME_FUZZ_CXX and
# AIRLUME_FUZZ_FLAGS, and AIRLUME_FUZZER_MISSING to the reason when there is none.
macro(airlume_find_fuzzer)
    set(AIRLUME_FUZZ_FLAGS -std=c++17 -fPIC -g -O1 -fsanitize=address,undefined
        -fno-sanitize-recover=undefined)
    find_program(AIRLUME_FUZZ_CXX NAMES clang++)
    mark_as_advanced(AIRLUME_FUZZ_CXX)
    if(NOT AIRLUME_FUZZ_CXX)
        set(AIRLUME_FUZZER_MISSING "clang is not installed")
    elseif(NOT DEFINED AIRLUME_FUZZER_MISSING)
        set(probe "${CMAKE_BINARY_DIR}/CMakeFiles/fuzzprobe")
        file(WRITE "${probe}.cpp"
            "extern \"C\" int LLVMFuzzerTestOneInput(const char *, unsigned long) { return 0; }\n")
        execute_process(
            COMMAND "${AIRLUME_FUZZ_CXX}" ${AIRLUME_FUZZ_FLAGS} -fsanitize=fuzzer "${probe}.cpp"
                -o "${probe}"
            RESULT_VARIABLE result OUTPUT_QUIET ERROR_QUIET)
        if(result EQUAL 0)
            set(AIRLUME_FUZZER_MISSING "" CACHE INTERNAL "")
        else()
            set(AIRLUME_FUZZER_MISSING "clang has no fuzzer runtime (libclang-rt)")
        endif()
    endif()
endmacro()
