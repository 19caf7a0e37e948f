# Dependencies of a cross-build (the Windows build of the data layer): nothing can be taken from
# the build machine's libraries, so
#   - GoogleTest is built from Debian's googletest sources;
#   - CLI11 and nlohmann/json are header-only: their headers are copied into the build folder
#     (never the whole /usr/include, whose C library headers belong to the build machine);
#   - the test programs run under Wine (CMAKE_CROSSCOMPILING_EMULATOR, through scripts/wine-run,
#     which keeps a Wine prefix of its own in the build folder).

set(ROSTERDESK_GOOGLETEST_SOURCE /usr/src/googletest CACHE PATH "GoogleTest sources for the cross-build")
if(NOT EXISTS ${ROSTERDESK_GOOGLETEST_SOURCE}/CMakeLists.txt)
    message(FATAL_ERROR "GoogleTest sources not found in ${ROSTERDESK_GOOGLETEST_SOURCE} (Debian package googletest)")
endif()
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(${ROSTERDESK_GOOGLETEST_SOURCE} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
if(NOT TARGET GTest::gtest)
    add_library(GTest::gtest ALIAS gtest)
    add_library(GTest::gtest_main ALIAS gtest_main)
endif()

set(host_include ${CMAKE_BINARY_DIR}/host-include)
foreach(header CLI/CLI.hpp nlohmann/json.hpp)
    string(MAKE_C_IDENTIFIER ${header} id)
    find_file(ROSTERDESK_${id} ${header} PATHS /usr/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    if(NOT ROSTERDESK_${id})
        message(FATAL_ERROR "${header} not found in /usr/include (Debian packages libcli11-dev, nlohmann-json3-dev)")
    endif()
    get_filename_component(folder ${ROSTERDESK_${id}} DIRECTORY)
    file(COPY ${folder} DESTINATION ${host_include})
endforeach()
add_library(CLI11::CLI11 INTERFACE IMPORTED)
target_include_directories(CLI11::CLI11 INTERFACE ${host_include})
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED)
target_include_directories(nlohmann_json::nlohmann_json INTERFACE ${host_include})

if(NOT CMAKE_CROSSCOMPILING_EMULATOR)
    find_program(ROSTERDESK_WINE NAMES wine64 wine PATHS /usr/lib/wine NO_CMAKE_FIND_ROOT_PATH)
    if(NOT ROSTERDESK_WINE)
        message(FATAL_ERROR "Wine not found (Debian package wine64): the Windows tests run under it")
    endif()
    set(CMAKE_CROSSCOMPILING_EMULATOR ${PROJECT_SOURCE_DIR}/scripts/wine-run ${CMAKE_BINARY_DIR}/wineprefix
                                      ${ROSTERDESK_WINE})
    if(ROSTERDESK_WINDOWS_GUI)
        # The test programs of the desktop build run on the zip's own files (scripts/test-windows
        # unpacks it into build-windows-gui/zip): its Qt DLLs and the compiler's runtime DLLs, found
        # through WINEPATH, and its platform plugins (tests/CMakeLists.txt writes the qt.conf). The programs that run while building (the demo generator) and
        # rosterdesk-cli are linked without DLLs, as in the data build.
        string(REPLACE "/" "\\" zip_native ${CMAKE_BINARY_DIR}/zip)
        list(PREPEND CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_COMMAND} -E env "WINEPATH=Z:${zip_native}")
    endif()
endif()

# A host path as the Windows programs see it under Wine: drive Z: is the build machine's root.
function(rosterdesk_wine_path out path)
    string(REPLACE "/" "\\" native ${path})
    set(${out} "Z:${native}" PARENT_SCOPE)
endfunction()
