# airlume_add_plugin(NAME simulated SOURCES a.cpp ... [LIBRARIES Qt5::DBus ...])
#
# A back end: target airlume_plugin_<NAME>, built as
# <build>/plugins/<NAME>/libWiFiApiPlugin.dylib, the file name the program loads on every platform.
# The sources also make the object library airlume_plugin_<NAME>_objects, which its tests link.
function(airlume_add_plugin)
    cmake_parse_arguments(ARG "" "NAME" "SOURCES;LIBRARIES" ${ARGN})
    set(objects airlume_plugin_${ARG_NAME}_objects)
    add_library(${objects} OBJECT ${ARG_SOURCES})
    target_include_directories(${objects} PUBLIC
        "${PROJECT_SOURCE_DIR}/plugins" "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(${objects} PUBLIC airlume_options Qt5::Core ${ARG_LIBRARIES})

    set(target airlume_plugin_${ARG_NAME})
    add_library(${target} MODULE)
    target_link_libraries(${target} PRIVATE ${objects})
    set_target_properties(${target} PROPERTIES
        PREFIX "" OUTPUT_NAME libWiFiApiPlugin SUFFIX .dylib
        LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/plugins/${ARG_NAME}")

    if(ARG_NAME STREQUAL AIRLUME_BACKEND)
        add_custom_command(TARGET ${target} POST_BUILD
            COMMAND ${CMAKE_COMMAND} -E make_directory $<TARGET_FILE_DIR:airlume>
            COMMAND ${CMAKE_COMMAND} -E copy_if_different $<TARGET_FILE:${target}>
                $<TARGET_FILE_DIR:airlume>
            COMMENT "Putting the ${ARG_NAME} back end beside the program")
    endif()
endfunction()
