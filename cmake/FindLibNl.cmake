# Finds libnl 3 with generic netlink by header and library and defines LibNl::Genl.
find_path(LIBNL_INCLUDE_DIR netlink/genl/genl.h PATH_SUFFIXES libnl3)
find_library(LIBNL_LIBRARY nl-3)
find_library(LIBNL_GENL_LIBRARY nl-genl-3)

if(LIBNL_INCLUDE_DIR AND EXISTS "${LIBNL_INCLUDE_DIR}/netlink/version.h")
    file(STRINGS "${LIBNL_INCLUDE_DIR}/netlink/version.h" libnl_version_line
        REGEX "^#define LIBNL_VERSION[ \t]+\"")
    string(REGEX REPLACE ".*\"([0-9.]+)\".*" "\\1" LIBNL_VERSION "${libnl_version_line}")
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(LibNl
    REQUIRED_VARS LIBNL_GENL_LIBRARY LIBNL_LIBRARY LIBNL_INCLUDE_DIR VERSION_VAR LIBNL_VERSION)

if(LibNl_FOUND AND NOT TARGET LibNl::Genl)
    add_library(LibNl::Genl UNKNOWN IMPORTED)
    set_target_properties(LibNl::Genl PROPERTIES
        IMPORTED_LOCATION "${LIBNL_GENL_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${LIBNL_INCLUDE_DIR}"
        INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${LIBNL_INCLUDE_DIR}"
        INTERFACE_LINK_LIBRARIES "${LIBNL_LIBRARY}")
endif()
mark_as_advanced(LIBNL_INCLUDE_DIR LIBNL_LIBRARY LIBNL_GENL_LIBRARY)
