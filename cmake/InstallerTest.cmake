# The installer under Wine, as a user and an administrator use it: a silent
# install, the check of every key and file and a connection to the installed
# add-in, an upgrade over settings the user changed, a silent uninstall.
# The checks are the suites of tests/win/installer (CHECK), one per step.
# Run with: cmake -DWINE=<emulator;...> -DPREFIX=<WINEPREFIX> -DCHECK=<exe>
#   -DMSI=<msi> -DNEXT_MSI=<msi of a later version> -P InstallerTest.cmake
# The two installers are built before (MSI_COMMAND, NEXT_MSI_COMMAND).
cmake_policy(VERSION 3.25)

function(run what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${what} failed (${result}):\n${out}")
  endif()
  message(STATUS "${what}: done")
endfunction()

# Z: is the root of the build machine in every Wine prefix.
function(windows_path out path)
  string(REPLACE "/" "\\" path "${path}")
  set(${out} "Z:${path}" PARENT_SCOPE)
endfunction()

if(NOT EXISTS "${DLL32}")
  message(STATUS "SKIPPED: no 32-bit Tavrin.dll at ${DLL32}; build the win32 preset first")
  return()
endif()
run("building the installers" ${MSI_COMMAND})
run("building the next version's installer" ${NEXT_MSI_COMMAND})
windows_path(msi ${MSI})
windows_path(next_msi ${NEXT_MSI})

# A run before that stopped half-way leaves its installation and the
# settings it changed: both go first, so every run starts as a new user.
execute_process(COMMAND ${WINE} msiexec /x ${next_msi} /quiet OUTPUT_QUIET ERROR_QUIET)
execute_process(COMMAND ${WINE} msiexec /x ${msi} /quiet OUTPUT_QUIET ERROR_QUIET)
file(GLOB left_over LIST_DIRECTORIES true "${PREFIX}/drive_c/users/*/AppData/Local/Programs/Tavrin")
if(left_over)
  file(REMOVE_RECURSE ${left_over})
endif()

run("silent install" ${WINE} msiexec /i ${msi} /quiet)
run("keys, files, connection" ${WINE} ${CHECK} --gtest_filter=Installed.*)
run("silent upgrade" ${WINE} msiexec /i ${next_msi} /quiet)
run("the user's settings after the upgrade" ${WINE} ${CHECK} --gtest_filter=Upgraded.*)
run("silent uninstall" ${WINE} msiexec /x ${next_msi} /quiet)
run("nothing left but the user's settings" ${WINE} ${CHECK} --gtest_filter=Removed.*)
