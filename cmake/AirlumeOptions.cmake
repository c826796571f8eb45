# Compiler policy for every target of our own: link airlume_options.
add_library(airlume_options INTERFACE)

target_compile_features(airlume_options INTERFACE cxx_std_17)
set_property(TARGET airlume_options PROPERTY INTERFACE_POSITION_INDEPENDENT_CODE ON)
target_compile_definitions(airlume_options INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING
    QT_NO_FOREACH
    QT_STRICT_ITERATORS
    QT_DEPRECATED_WARNINGS
    QT_DISABLE_DEPRECATED_BEFORE=0x050800)
target_compile_options(airlume_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
    -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wcast-align -Wformat=2)

if(AIRLUME_SANITIZE)
    set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=undefined
        -fno-omit-frame-pointer)
    target_compile_options(airlume_options INTERFACE ${sanitizers} -O1)
    target_link_options(airlume_options INTERFACE ${sanitizers})
endif()

# Hardening of what users run; tests/package/hardening.sh looks for it in the built files.
include(CheckPIESupported)
include(CheckCXXCompilerFlag)
check_pie_supported(LANGUAGES CXX)
set(hardening -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -D_GLIBCXX_ASSERTIONS)
foreach(flag IN ITEMS -fstack-clash-protection -fcf-protection)
    string(MAKE_C_IDENTIFIER "AIRLUME_HAS${flag}" known)
    check_cxx_compiler_flag(${flag} ${known})
    if(${known})
        list(APPEND hardening ${flag})
    endif()
endforeach()
# Messages name source files; where they were built is nobody's business.
list(APPEND hardening "-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=")
target_compile_options(airlume_options INTERFACE "$<$<CONFIG:Release>:${hardening}>")
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    target_link_options(airlume_options INTERFACE
        "$<$<CONFIG:Release>:LINKER:-z,relro,-z,now,-z,noexecstack,--as-needed>")
endif()
