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
file(COPY_FILE ${SOURCE_DIR}/README.md ${STAGE}/help/README.md)
foreach(page IN ITEMS settings procedures transformations)
  file(COPY_FILE ${SOURCE_DIR}/docs/${page}.md ${STAGE}/help/${page}.md)
endforeach()

execute_process(
  COMMAND ${WIXL} --arch x64 -o ${OUTPUT} -D Version=${VERSION}
          "-D" "AddinDescription=Tavrin ${VERSION}: ${DESCRIPTION}" tavrin.wxs
  WORKING_DIRECTORY ${STAGE}
  RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "wixl failed (${result})")
endif()
