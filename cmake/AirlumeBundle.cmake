# The bundle airlume.app for macOS, in the build folder and by `cmake --install`. The checker, the
# host and the back end lie beside the program, where checker and program look for the back end. The
# property list is made everywhere.
set(property_list "${PROJECT_BINARY_DIR}/packaging/Info.plist")
configure_file("${PROJECT_SOURCE_DIR}/packaging/macos/Info.plist.in" "${property_list}" @ONLY)
if(NOT APPLE)
    return()
endif()

set(icon "${PROJECT_SOURCE_DIR}/packaging/icons/airlume.icns")
target_sources(airlume PRIVATE "${icon}")
set_target_properties(airlume PROPERTIES
    MACOSX_BUNDLE ON MACOSX_BUNDLE_INFO_PLIST "${property_list}" RESOURCE "${icon}")
set(beside_program "airlume.app/Contents/MacOS")
set_target_properties(airlume-plugincheck airlume-host PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${beside_program}")

install(TARGETS airlume BUNDLE DESTINATION .)
install(TARGETS airlume-plugincheck airlume-host RUNTIME DESTINATION "${beside_program}")
if(TARGET airlume_plugin_${AIRLUME_BACKEND})
    install(TARGETS airlume_plugin_${AIRLUME_BACKEND} LIBRARY DESTINATION "${beside_program}")
endif()
