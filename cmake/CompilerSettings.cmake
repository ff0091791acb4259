# One interface target carries what every target of the project is compiled with.
add_library(mosaro_settings INTERFACE)
target_compile_options(mosaro_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    $<$<BOOL:${MOSARO_WERROR}>:-Werror>)
# GLib's headers use "signals" as a name, so Qt's keyword macros are off.
target_compile_definitions(mosaro_settings INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_include_directories(mosaro_settings INTERFACE "${PROJECT_SOURCE_DIR}/src")
target_link_options(mosaro_settings INTERFACE -Wl,--as-needed)

find_program(MOSARO_MOLD mold)
if(MOSARO_MOLD AND CMAKE_CXX_COMPILER_ID MATCHES "^(GNU|Clang)$")
    target_link_options(mosaro_settings INTERFACE -fuse-ld=mold)
endif()

if(MOSARO_SANITIZE)
    target_compile_options(mosaro_settings INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(mosaro_settings INTERFACE -fsanitize=address,undefined)
endif()

if(MOSARO_FUZZ)
    # The layers tell the fuzzer which ways they have gone; its own part is linked with the programs only.
    target_compile_options(mosaro_settings INTERFACE -fsanitize=fuzzer-no-link -Wno-sign-conversion)
endif()

find_program(MOSARO_CCACHE ccache)
if(MOSARO_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${MOSARO_CCACHE}")
    # What ccache needs to see through a precompiled header.
    set(ENV{CCACHE_SLOPPINESS} "pch_defines,time_macros,include_file_mtime,include_file_ctime")
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        "${MOSARO_CCACHE}")
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endif()
