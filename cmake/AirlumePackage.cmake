# The Debian package that `cpack` makes of a Release build in its build folder.
if(NOT CMAKE_SYSTEM_NAME STREQUAL "Linux")
    return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME airlume)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_VENDOR "The Airlume developers")
# There is no public address yet; this host is reserved, so that nobody gets the mail.
set(CPACK_PACKAGE_CONTACT "The Airlume developers <airlume@example.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/packaging/debian/finish.cmake")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# Lower than 1, with which a packaging by Debian itself would begin.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0local1)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Networks are named in any script. Whoever manages the radio scans where an ordinary user may not.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "fonts-noto-core, fonts-noto-cjk, fonts-noto-color-emoji, network-manager | iwd | wpasupplicant | connman")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qtwayland5")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Airlume shows the Wi-Fi around the computer: which networks it hears, how
strong they are and which channels they crowd. It draws their signals over
time and their places on the channels, rates every channel, and notes how good
the connection is in each room of a home.

It needs no special rights. The command airlume-plugincheck tells why nothing
is listed.")

include(CPack)
