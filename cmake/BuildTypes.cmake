# What every file of ours is compiled with, and the tools that make builds quick where they are installed.

# Optimised, with assertions and line numbers.
set(CMAKE_CXX_FLAGS_DEV "-O2 -g1")
# As fast as -O3 here, and what every test ran with; at -O3 the compiler warns of texts longer than memory.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
# What is installed knows its libraries' functions from the start, so that no file can point them elsewhere.
set(CMAKE_EXE_LINKER_FLAGS_RELEASE "-Wl,-z,relro,-z,now")

add_library(vexa_options INTERFACE)
target_include_directories(vexa_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(vexa_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Wnon-virtual-dtor
    -Wconversion -Wfloat-conversion -Wdouble-promotion -Werror
    # At -O3 the compiler takes the parts of a joined text for one another.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # At -O2 it takes the other alternative of a variant for one that was never set.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
    # A fused multiply-add is one rounding less than the figures are defined with.
    -ffp-contract=off)
target_compile_definitions(vexa_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)

if(VEXA_SANITIZE)
    add_compile_options(-fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined,float-cast-overflow)
endif()

find_program(VEXA_CCACHE ccache)
if(VEXA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros ${VEXA_CCACHE})
    add_compile_options(-fpch-preprocess)
endif()
find_program(VEXA_MOLD mold)
if(VEXA_MOLD)
    add_link_options(-fuse-ld=mold)
endif()
