# Fails when a source file breaks the layering: Windows headers outside win/,
# or an include of a folder that sits above the including one.
# Run with: cmake -DSOURCE_DIR=<repo> -P CheckLayers.cmake

# Rank of each folder: a file may include its own folder and folders of a
# lower rank only.
set(rank_base 0)
set(rank_platform 1)
set(rank_resources 1)
set(rank_ide 2)
set(rank_ide/memory 3)
set(rank_settings 4)
set(rank_scan 4)
set(rank_fragments 5)
set(rank_codegen 6)
set(rank_transform 6)
set(rank_formtools 6)
set(rank_builders 7)
set(rank_toolwindows 7)
set(rank_addin 8)
set(rank_cli 9)
set(rank_win 9)
set(core_folders base platform resources ide ide/memory settings scan fragments codegen
                 transform formtools builders toolwindows addin cli win)

set(problems "")
foreach(folder IN LISTS core_folders)
  file(GLOB files ${SOURCE_DIR}/${folder}/*.h ${SOURCE_DIR}/${folder}/*.cpp)
  foreach(file IN LISTS files)
    file(STRINGS ${file} includes REGEX "^#include ")
    foreach(line IN LISTS includes)
      if(NOT folder STREQUAL "win" AND line MATCHES "<(windows|objbase|oleauto|ole2|unknwn|winreg|shellapi|commctrl)\\.h>")
        string(APPEND problems "${file}: ${line} (Windows headers belong in win/)\n")
      endif()
      if(line MATCHES "^#include \"([a-z_]+(/memory)?)/[^/\"]+\"")
        set(target ${CMAKE_MATCH_1})
        if(DEFINED rank_${target} AND NOT target STREQUAL folder
           AND NOT rank_${target} LESS rank_${folder})
          string(APPEND problems "${file}: ${line} (${folder}/ may not include ${target}/)\n")
        endif()
      endif()
    endforeach()
  endforeach()
endforeach()

if(problems)
  message(FATAL_ERROR "Layering broken:\n${problems}")
endif()
message(STATUS "Layering holds")
