# Toolchain for Qt for Windows (scripts/windows-qt) and for the desktop program built against it
# (scripts/package-windows): the compiler's runtime libraries stay DLLs (libstdc++-6.dll,
# libgcc_s_seh-1.dll, libwinpthread-1.dll), shared by Qt's DLLs and our programs, and shipped
# beside them.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64-x86_64-compilers.cmake)
