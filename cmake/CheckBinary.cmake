# Fails when a Windows binary imports anything but system DLLs (the runtime
# is linked in statically), lacks one of the exports named, or exports a
# decorated stdcall name.
# Run with: cmake -DOBJDUMP=<objdump> -DBINARY=<file> [-DEXPORTS=a;b] -P CheckBinary.cmake
cmake_policy(VERSION 3.25)

set(system_dlls
    kernel32 msvcrt user32 gdi32 advapi32 shell32 shlwapi ole32 oleaut32 comctl32
    comdlg32 uuid version ws2_32 bcrypt winmm)

execute_process(COMMAND ${OBJDUMP} -p ${BINARY} OUTPUT_VARIABLE dump RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${OBJDUMP} -p ${BINARY} failed")
endif()

set(problems "")
string(REGEX MATCHALL "DLL Name: [^\n]+" imports "${dump}")
foreach(line IN LISTS imports)
  string(REGEX REPLACE "DLL Name: ([^\n]+)\\.[dD][lL][lL]" "\\1" name "${line}")
  string(TOLOWER "${name}" name)
  if(NOT name IN_LIST system_dlls AND NOT name MATCHES "^api-ms-win-")
    string(APPEND problems "imports ${name}.dll, which is not a system DLL\n")
  endif()
endforeach()

foreach(export IN LISTS EXPORTS)
  # An export table line: "[ordinal] name", the name undecorated.
  if(NOT dump MATCHES "\\] ${export}\n")
    string(APPEND problems "does not export ${export} (undecorated)\n")
  endif()
endforeach()

# A stdcall name left decorated ("Name@8") is found by no COM host.
string(REGEX MATCHALL "\\] [A-Za-z_][A-Za-z_0-9]*@[0-9]+\n" decorated "${dump}")
foreach(line IN LISTS decorated)
  string(STRIP "${line}" line)
  string(APPEND problems "exports a decorated name: ${line}\n")
endforeach()

if(problems)
  message(FATAL_ERROR "${BINARY}:\n${problems}")
endif()
list(LENGTH imports count)
message(STATUS "${BINARY}: ${count} system DLL imports, exports present")
