# Cross-compiles for Windows. VMG_BITS is 64 or 32.
set(VMG_BITS 64 CACHE STRING "Width of the Windows build")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VMG_BITS)
if(VMG_BITS EQUAL 64)
  set(triplet x86_64-w64-mingw32)
else()
  set(triplet i686-w64-mingw32)
endif()

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${triplet})
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)  # the thread model with std::mutex, which GoogleTest needs
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Programs of this build run under Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../packaging/wine-run)
