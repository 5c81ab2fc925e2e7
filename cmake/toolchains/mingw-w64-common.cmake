# Shared part of the mingw-w64 toolchains. The including file sets
# TAVRIN_MINGW_TRIPLE (x86_64-w64-mingw32 or i686-w64-mingw32) first.
#
# The *-posix compilers use winpthreads, which std::thread and std::mutex
# need. Linking everything statically leaves the binaries importing system
# DLLs only, so the add-in and the tool run without any MinGW DLL beside them.

set(CMAKE_SYSTEM_NAME Windows)

set(CMAKE_C_COMPILER ${TAVRIN_MINGW_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${TAVRIN_MINGW_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${TAVRIN_MINGW_TRIPLE}-windres)
set(CMAKE_AR ${TAVRIN_MINGW_TRIPLE}-gcc-ar-posix CACHE FILEPATH "")
set(CMAKE_RANLIB ${TAVRIN_MINGW_TRIPLE}-gcc-ranlib-posix CACHE FILEPATH "")

# Libraries and headers from the target's sysroot only; programs (the host
# compiler for the build's own tools, wine) from the build machine.
set(CMAKE_FIND_ROOT_PATH /usr/${TAVRIN_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(_tavrin_static_runtime "-static -static-libgcc -static-libstdc++")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${_tavrin_static_runtime}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${_tavrin_static_runtime}")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "${_tavrin_static_runtime}")
