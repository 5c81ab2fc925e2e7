# What `cpack` (the `package` target) makes of a build: a zip of each Windows
# build (the add-in, the tool, the README and the icons' credit), a .deb of
# the command-line tool on Linux. scripts/package.sh makes all of them and
# the installer in one go.

set(CPACK_PACKAGE_NAME tavrin)
set(CPACK_PACKAGE_VENDOR Tavrin)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Code builders and transformations for Visual Basic 6 and VBA source files")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_RESOURCE_FILE_README ${PROJECT_SOURCE_DIR}/README.md)
# The dev build keeps debug information; the packages do not.
set(CPACK_STRIP_FILES ON)

if(WIN32)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(_tavrin_bits win64)
  else()
    set(_tavrin_bits win32)
  endif()
  install(TARGETS Tavrin RUNTIME DESTINATION .)
  if(TAVRIN_BUILD_TOOL)
    install(TARGETS tavrin RUNTIME DESTINATION .)
  endif()
  install(FILES README.md installer/icons.txt DESTINATION .)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
  set(CPACK_PACKAGE_FILE_NAME Tavrin-${PROJECT_VERSION}-${_tavrin_bits})
elseif(TAVRIN_BUILD_TOOL)
  install(TARGETS tavrin RUNTIME DESTINATION bin)
  set(CPACK_GENERATOR DEB)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Tavrin <tavrin@tavrin.example.org>")
  set(CPACK_DEBIAN_PACKAGE_SECTION devel)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
      "Runs Tavrin's procedure, property and statement builders and its line-number,\n\
comment and HTML transformations on exported Visual Basic source files\n\
(.bas .cls .frm .ctl), outside the IDE.")
endif()
include(CPack)
