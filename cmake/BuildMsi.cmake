# Builds the MSI: stages the files under the names installer/tavrin.wxs
# gives them beside a copy of it (wixl takes sources relative to the .wxs
# file only), then runs wixl there.
# Run with: cmake -DWIXL=<wixl> -DSOURCE_DIR=<source> -DSTAGE=<dir> -DOUTPUT=<msi>
#   -DVERSION=<x.y.z> -DDESCRIPTION=<text> -DDLL32=<dll> -DDLL64=<dll> -DTOOL=<exe>
#   -P BuildMsi.cmake
cmake_policy(VERSION 3.25)

if(NOT EXISTS "${DLL32}")
  message(FATAL_ERROR "${DLL32} is missing: build the win32 preset first "
                      "(cmake --preset win32 && cmake --build --preset win32)")
endif()
file(REMOVE_RECURSE ${STAGE})
file(MAKE_DIRECTORY ${STAGE}/help)
file(COPY_FILE ${DLL32} ${STAGE}/Tavrin.dll)
file(COPY_FILE ${DLL64} ${STAGE}/Tavrin64.dll)
file(COPY_FILE ${TOOL} ${STAGE}/tavrin.exe)
file(COPY_FILE ${SOURCE_DIR}/installer/tavrin.wxs ${STAGE}/tavrin.wxs)
file(COPY_FILE ${SOURCE_DIR}/installer/icons.txt ${STAGE}/help/icons.txt)
# The help book, with the line ends the add-in gives the copy it writes
# when a page is missing, so that it finds the installed pages unchanged and
# an uninstall leaves no page behind.
file(GLOB pages RELATIVE ${SOURCE_DIR}/docs/help ${SOURCE_DIR}/docs/help/*.html
     ${SOURCE_DIR}/docs/help/*.css)
set(page_elements "")
foreach(page IN LISTS pages)
  file(READ ${SOURCE_DIR}/docs/help/${page} text)
  string(REPLACE "\n" "\r\n" text "${text}")
  file(WRITE ${STAGE}/help/${page} "${text}")
  string(MAKE_C_IDENTIFIER "Help_${page}" id)
  string(APPEND page_elements
         "        <File Id=\"${id}\" Name=\"${page}\" Source=\"help/${page}\" />\n")
endforeach()
file(READ ${STAGE}/tavrin.wxs wxs)
string(REPLACE "        <!-- HELP BOOK: cmake/BuildMsi.cmake lists the pages of docs/help here. -->\n"
               "${page_elements}" wxs "${wxs}")
file(WRITE ${STAGE}/tavrin.wxs "${wxs}")

execute_process(
  COMMAND ${WIXL} --arch x64 -o ${OUTPUT} -D Version=${VERSION}
          "-D" "AddinDescription=Tavrin ${VERSION}: ${DESCRIPTION}" tavrin.wxs
  WORKING_DIRECTORY ${STAGE}
  RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "wixl failed (${result})")
endif()
