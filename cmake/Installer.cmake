# The Windows installer: an MSI built with wixl (msitools) from
# installer/tavrin.wxs by cmake/BuildMsi.cmake, per user and without
# administrator rights, carrying both DLLs (the 32-bit one from the win32
# preset's build), the tool and the help. Only the 64-bit build makes it: `cmake --build --preset win64
# --target installer` writes build/win64/Tavrin-<version>.msi.
#
# Sets:
#   TAVRIN_WIXL        wixl, when installed
#   TAVRIN_WIN32_DLL   the 32-bit Tavrin.dll the installer carries
#   TAVRIN_MSI         the installer's path

find_program(TAVRIN_WIXL NAMES wixl DOC "wixl of msitools, which builds the MSI")
set(TAVRIN_WIN32_DLL ${PROJECT_SOURCE_DIR}/build/win32/Tavrin.dll CACHE FILEPATH
    "The 32-bit Tavrin.dll that the installer carries (built by the win32 preset)")
set(TAVRIN_MSI ${CMAKE_BINARY_DIR}/Tavrin-${PROJECT_VERSION}.msi)

# The command that builds the installer of one version into `output` (the
# test builds it under a later version too, to upgrade over the first).
function(tavrin_msi_command out_var output version)
  set(${out_var}
      ${CMAKE_COMMAND} -DWIXL=${TAVRIN_WIXL} -DSOURCE_DIR=${PROJECT_SOURCE_DIR}
      -DSTAGE=${output}.files -DOUTPUT=${output} -DVERSION=${version}
      "-DDESCRIPTION=${TAVRIN_ADDIN_DESCRIPTION}"
      -DDLL32=${TAVRIN_WIN32_DLL} -DDLL64=$<TARGET_FILE:Tavrin> -DTOOL=$<TARGET_FILE:tavrin>
      -P ${PROJECT_SOURCE_DIR}/cmake/BuildMsi.cmake
      PARENT_SCOPE)
endfunction()

if(TAVRIN_WIXL AND CMAKE_SIZEOF_VOID_P EQUAL 8 AND TAVRIN_BUILD_TOOL)
  tavrin_msi_command(_tavrin_msi_command ${TAVRIN_MSI} ${PROJECT_VERSION})
  add_custom_target(installer
    COMMAND ${_tavrin_msi_command}
    DEPENDS Tavrin tavrin ${PROJECT_SOURCE_DIR}/installer/tavrin.wxs
    BYPRODUCTS ${TAVRIN_MSI}
    COMMENT "Building ${TAVRIN_MSI}"
    VERBATIM)
endif()
