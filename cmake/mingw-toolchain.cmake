# Cross toolchain: Debian's MinGW-w64 in its POSIX threads variant.
# ZC_WIN_ARCH: x86_64 (default) or i686.
set(CMAKE_SYSTEM_NAME Windows)
set(ZC_WIN_ARCH "x86_64" CACHE STRING "x86_64 or i686")
set(CMAKE_SYSTEM_PROCESSOR ${ZC_WIN_ARCH})
# try_compile() reads this file again and needs the choice.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZC_WIN_ARCH)

set(_triple ${ZC_WIN_ARCH}-w64-mingw32)
set(CMAKE_C_COMPILER ${_triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${_triple}-g++-posix)
set(CMAKE_RC_COMPILER ${_triple}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${_triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The C++ runtime goes into each exe; the link time stays out, so that the same
# sources give the same file.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")

# 32-bit programs are only linked: the Wine of Debian's amd64 cannot run them.
if(ZC_WIN_ARCH STREQUAL "x86_64")
  get_filename_component(_root "${CMAKE_CURRENT_LIST_DIR}/.." ABSOLUTE)
  set(CMAKE_CROSSCOMPILING_EMULATOR "${_root}/tools/wine-run")
endif()
