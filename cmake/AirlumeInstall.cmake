# What `cmake --install` puts where, except on macOS (AirlumeBundle.cmake). The program, the checker
# and their back end share a private folder, since both look for it beside themselves; links in the
# folder for programs start the tools, and a script the program. The simulated back end lies apart,
# for QT_PLUGIN_PATH.
if(APPLE)
    return()
endif()

set(private_dir "${CMAKE_INSTALL_LIBEXECDIR}/airlume")

install(TARGETS airlume airlume-plugincheck airlume-host
    RUNTIME DESTINATION "${private_dir}")
if(TARGET airlume_plugin_${AIRLUME_BACKEND})
    install(TARGETS airlume_plugin_${AIRLUME_BACKEND} LIBRARY DESTINATION "${private_dir}")
endif()
install(TARGETS airlume_plugin_simulated LIBRARY DESTINATION "${private_dir}/simulated")

# Relative, so that the tree may be moved.
file(RELATIVE_PATH from_bin
    "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBEXECDIR}/airlume")
foreach(program IN ITEMS airlume-plugincheck airlume-host)
    set(link "${PROJECT_BINARY_DIR}/packaging/bin/${program}")
    file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/packaging/bin")
    file(CREATE_LINK "${from_bin}/${program}" "${link}" SYMBOLIC)
    install(FILES "${link}" DESTINATION "${CMAKE_INSTALL_BINDIR}")
endforeach()

set(packaging "${PROJECT_SOURCE_DIR}/packaging")
configure_file("${packaging}/airlume.in" "${PROJECT_BINARY_DIR}/packaging/airlume" @ONLY)
install(PROGRAMS "${PROJECT_BINARY_DIR}/packaging/airlume" DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(FILES "${packaging}/airlume.desktop" DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES "${packaging}/app.airlume.Airlume.metainfo.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
install(DIRECTORY "${packaging}/icons/hicolor" DESTINATION "${CMAKE_INSTALL_DATADIR}/icons")
install(FILES "${packaging}/airlume-plugincheck.1" "${packaging}/airlume-host.1"
    DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
install(FILES "${packaging}/copyright" DESTINATION "${CMAKE_INSTALL_DOCDIR}")

# Scenarios to play and to change, the built-in street among them.
file(GLOB scenarios CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/docs/examples/*.json")
install(FILES ${scenarios} "${PROJECT_SOURCE_DIR}/plugins/simulated/neighbourhood.json"
    DESTINATION "${CMAKE_INSTALL_DOCDIR}/examples")

# These manual pages name folders, which are known for sure only while installing.
foreach(page IN ITEMS airlume.1 airlume-scenario.5)
    set(made "${PROJECT_BINARY_DIR}/packaging/${page}")
    install(CODE "
        set(AIRLUME_PRIVATE_DIR \"${private_dir}\")
        set(AIRLUME_DOC_DIR \"${CMAKE_INSTALL_DOCDIR}\")
        foreach(folder IN ITEMS AIRLUME_PRIVATE_DIR AIRLUME_DOC_DIR)
            if(NOT IS_ABSOLUTE \"\${\${folder}}\")
                string(PREPEND \${folder} \"\${CMAKE_INSTALL_PREFIX}/\")
            endif()
        endforeach()
        configure_file(\"${packaging}/${page}.in\" \"${made}\" @ONLY)")
    string(REGEX MATCH "[0-9]$" section "${page}")
    install(FILES "${made}" DESTINATION "${CMAKE_INSTALL_MANDIR}/man${section}")
endforeach()
