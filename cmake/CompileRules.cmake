# The one place for compile rules: language level, warnings, strict Qt, sanitizers.
# Every target of ours links tarvelo_rules.

set(TARVELO_SANITIZE "" CACHE STRING "Sanitizers to build with, such as address,undefined")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)

find_program(TARVELO_CCACHE ccache)
if(TARVELO_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${TARVELO_CCACHE})
endif()

add_library(tarvelo_rules INTERFACE)
target_compile_options(tarvelo_rules INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wimplicit-fallthrough -Werror
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond;-Wlogical-op>)
target_compile_definitions(tarvelo_rules INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_NO_FOREACH QT_STRICT_ITERATORS QT_DISABLE_DEPRECATED_BEFORE=0x060400
    QT_MESSAGELOGCONTEXT)

if(TARVELO_SANITIZE)
    target_compile_options(tarvelo_rules INTERFACE
        -fsanitize=${TARVELO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(tarvelo_rules INTERFACE -fsanitize=${TARVELO_SANITIZE})
endif()

find_program(TARVELO_MOLD mold)
if(TARVELO_MOLD)
    target_link_options(tarvelo_rules INTERFACE -fuse-ld=mold)
endif()
