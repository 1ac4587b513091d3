# Cross toolchain for the workshop's PC: 64-bit Windows, mingw-w64 with posix threads (std::mutex and the like
# need them), and a Qt 6 built for it in the folder QT6_MINGW. moc and rcc come from the machine's own Qt, which
# has to be of the same version.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

if(NOT QT6_MINGW)
  set(QT6_MINGW ${CMAKE_CURRENT_LIST_DIR}/../build/qt6-mingw)
endif()
get_filename_component(QT6_MINGW ${QT6_MINGW} ABSOLUTE)
set(QT6_MINGW ${QT6_MINGW} CACHE PATH "Qt 6 built for Windows" FORCE)
# The trial projects of the configuration run through this file again.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QT6_MINGW)

# The linker lays out the tables of the imported DLLs in the order of the paths of their libraries, as they stand on
# its command line: a Qt in /lumira comes before the system's own libraries in /usr, one in /work behind them. Through
# a link within the build folder the paths are relative ones, and a program the same wherever it is built.
set(QT6_MINGW_VICINA ${QT6_MINGW})
get_property(in_prova GLOBAL PROPERTY IN_TRY_COMPILE)
if(NOT in_prova)
  set(QT6_MINGW_VICINA ${CMAKE_BINARY_DIR}/qt6-mingw)
  file(CREATE_LINK ${QT6_MINGW} ${QT6_MINGW_VICINA} SYMBOLIC)
endif()

# Programs of this machine; headers, libraries and packages of the other.
set(CMAKE_PREFIX_PATH ${QT6_MINGW_VICINA})
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${QT6_MINGW_VICINA})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(QT_HOST_PATH /usr CACHE PATH "Qt of this machine")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH "Its packages")

# ctest runs the programs under Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../packaging/windows/wine.sh)
