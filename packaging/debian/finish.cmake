# Run by cpack in the staged tree before the Debian package is made of it: what Debian wants of a
# package's documents (Debian Policy, chapter 12).
set(root "${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}")
set(documents "${root}/share/doc/${CPACK_PACKAGE_NAME}")

string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE "${documents}/changelog.Debian"
"${CPACK_PACKAGE_NAME} (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium

  * Built from the program's own sources; changelog.gz tells what is new.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
configure_file("${CMAKE_CURRENT_LIST_DIR}/../../CHANGELOG.md" "${documents}/changelog" COPYONLY)

file(GLOB pages "${root}/share/man/man*/*")
execute_process(COMMAND gzip -9n ${pages} "${documents}/changelog" "${documents}/changelog.Debian"
    COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND chmod -R u=rwX,go=rX "${CPACK_TEMPORARY_INSTALL_DIRECTORY}"
    COMMAND_ERROR_IS_FATAL ANY)
