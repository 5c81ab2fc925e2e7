# The product's version: project(Tavrin VERSION x.y.z) in the top CMakeLists.txt
# is its only source. From it come a header for the code (the tool's --version,
# the Add-In Manager's description) and, for the Windows binaries, a resource
# script per binary with its VERSIONINFO and the string table.
#
# Sets:
#   TAVRIN_VERSION_HEADER   generated tavrin_version.h (on the include path)
#   TAVRIN_DLL_RESOURCES    generated .rc for Tavrin.dll
#   TAVRIN_EXE_RESOURCES    generated .rc for tavrin.exe

# What the Add-In Manager shows after "Tavrin x.y.z: ", written by the DLL's
# registration and by the installer.
set(TAVRIN_ADDIN_DESCRIPTION "builds procedures, properties, variables and statement blocks in \
your own naming convention, and numbers, comments and exports code.")

set(TAVRIN_VERSION_HEADER ${TAVRIN_GENERATED_DIR}/tavrin_version.h)
configure_file(${PROJECT_SOURCE_DIR}/cmake/templates/tavrin_version.h.in
               ${TAVRIN_VERSION_HEADER} @ONLY)

function(tavrin_version_resources output file_name description file_type)
  set(TAVRIN_FILE_NAME ${file_name})
  set(TAVRIN_FILE_DESCRIPTION ${description})
  set(TAVRIN_FILE_TYPE ${file_type})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/templates/version.rc.in ${output} @ONLY)
  # The script includes the string table, which is generated at build time.
  set_source_files_properties(${output} PROPERTIES OBJECT_DEPENDS ${TAVRIN_RESOURCE_SCRIPT})
endfunction()

if(WIN32)
  set(TAVRIN_DLL_RESOURCES ${TAVRIN_GENERATED_DIR}/tavrin_dll.rc)
  set(TAVRIN_EXE_RESOURCES ${TAVRIN_GENERATED_DIR}/tavrin_exe.rc)
  # File types: 2 a DLL, 1 an application.
  tavrin_version_resources(${TAVRIN_DLL_RESOURCES} Tavrin.dll "Tavrin add-in" 2)
  tavrin_version_resources(${TAVRIN_EXE_RESOURCES} tavrin.exe "Tavrin command-line tool" 1)
endif()
