# Finds Qwt 6.1 or later by header and library and defines Qwt::Qwt. Its pkg-config file asks for
# Qt modules that it does not need, so it is left alone.
find_path(QWT_INCLUDE_DIR qwt_global.h
    PATH_SUFFIXES qwt qwt6 qwt-qt5 qt5/qwt qwt.framework/Headers
    PATHS /opt/homebrew/lib /usr/local/lib)
find_library(QWT_LIBRARY NAMES qwt-qt5 qwt
    PATHS /opt/homebrew/lib /usr/local/lib)

if(QWT_INCLUDE_DIR AND EXISTS "${QWT_INCLUDE_DIR}/qwt_global.h")
    file(STRINGS "${QWT_INCLUDE_DIR}/qwt_global.h" qwt_version_line
        REGEX "^#define[ \t]+QWT_VERSION_STR")
    string(REGEX REPLACE ".*\"([0-9.]+)\".*" "\\1" QWT_VERSION "${qwt_version_line}")
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Qwt
    REQUIRED_VARS QWT_LIBRARY QWT_INCLUDE_DIR VERSION_VAR QWT_VERSION)

if(Qwt_FOUND AND NOT TARGET Qwt::Qwt)
    add_library(Qwt::Qwt UNKNOWN IMPORTED)
    set_target_properties(Qwt::Qwt PROPERTIES
        IMPORTED_LOCATION "${QWT_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${QWT_INCLUDE_DIR}"
        INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${QWT_INCLUDE_DIR}")
endif()
mark_as_advanced(QWT_INCLUDE_DIR QWT_LIBRARY)
