# Builds for 32-bit ARM Linux with Debian's cross compiler against a folder of Debian's armhf packages, and runs what
# was built with qemu.
#
#   tools/gather-sysroot build/sysroot-armhf
#   cmake -S . -B build/arm --toolchain cmake/arm-linux-gnueabihf.cmake
#
# RECIPE_SYSROOT names another folder. For a panel's own SDK use the toolchain file that comes with it.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7l)

list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES RECIPE_SYSROOT)
set(RECIPE_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/../build/sysroot-armhf" CACHE PATH "Debian's armhf packages, unpacked")
get_filename_component(CMAKE_SYSROOT "${RECIPE_SYSROOT}" REALPATH)
if(NOT EXISTS "${CMAKE_SYSROOT}/usr/include")
    message(FATAL_ERROR "There are no armhf packages in ${CMAKE_SYSROOT}: run tools/gather-sysroot ${CMAKE_SYSROOT}")
endif()

set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)

# Libraries and headers are the panel's, programs of the build this machine's.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Translations are compiled and read by programs of this machine alone.
file(GLOB Qt5LinguistTools_DIR "/usr/lib/*/cmake/Qt5LinguistTools")

set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../tools/run-arm;${CMAKE_SYSROOT}")
