# 32-bit Windows with mingw-w64 (VB6 and 32-bit Office). No emulator: the
# Wine on the build machines is 64-bit only, so 32-bit tests are built, not run.
set(TAVRIN_MINGW_TRIPLE i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64-common.cmake)
