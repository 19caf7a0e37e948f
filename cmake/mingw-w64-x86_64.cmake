# Toolchain for the Windows build of the data layer: 64-bit Windows programs from Debian's
# mingw-w64 compilers (posix thread model). Used by scripts/test-windows:
#
#   cmake -S . -B build-windows -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64-x86_64.cmake
#
# Only the data layer, rosterdesk-cli and the data-layer tests are built (see
# cmake/cross_dependencies.cmake); the tests run under Wine. The desktop program is built with
# mingw-w64-x86_64-shared.cmake against Qt for Windows (scripts/windows-qt).
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64-x86_64-compilers.cmake)

# Each program is one self-contained .exe: the compiler's runtime libraries are linked in.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
