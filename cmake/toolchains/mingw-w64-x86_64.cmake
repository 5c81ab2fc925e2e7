# 64-bit Windows with mingw-w64; test programs run under Wine.
set(TAVRIN_MINGW_TRIPLE x86_64-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64-common.cmake)

# ctest starts every test program through the emulator. Wine gets a prefix of
# its own inside the build folder (created on first use, which takes a while)
# so that tests neither read nor change the user's ~/.wine; the Mono and Gecko
# installers are switched off, since no test needs them and they would ask,
# and so is the crash debugger: a test program that crashes fails at once
# instead of waiting on the debugger's dialog until the test times out.
# With xvfb-run at hand each program also gets a virtual display of its own,
# so the dialog tests can show and answer real dialogs; without it they skip.
find_program(TAVRIN_WINE NAMES wine wine64)
find_program(TAVRIN_XVFB_RUN NAMES xvfb-run)
if(TAVRIN_WINE)
  set(_tavrin_display)
  if(TAVRIN_XVFB_RUN)
    set(_tavrin_display ${TAVRIN_XVFB_RUN} -a)
  endif()
  set(CMAKE_CROSSCOMPILING_EMULATOR
      ${_tavrin_display}
      ${CMAKE_COMMAND} -E env
      WINEDEBUG=-all
      WINEPREFIX=${CMAKE_BINARY_DIR}/wineprefix
      WINEDLLOVERRIDES=mscoree,mshtml,winedbg.exe=d
      ${TAVRIN_WINE})
endif()
