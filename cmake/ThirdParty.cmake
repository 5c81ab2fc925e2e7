# Header-only libraries of the tool (CLI11, nlohmann/json) and GoogleTest.
#
# Native builds use the installed packages. Cross builds must not put the
# host's /usr/include on their include path, so the two header-only libraries
# are copied into the build tree and GoogleTest is built from its sources.

if(CMAKE_CROSSCOMPILING)
  set(TAVRIN_THIRD_PARTY_INCLUDE ${CMAKE_BINARY_DIR}/third_party/include)
  foreach(header_dir CLI nlohmann)
    if(NOT EXISTS /usr/include/${header_dir})
      message(FATAL_ERROR "/usr/include/${header_dir} is missing: install libcli11-dev and nlohmann-json3-dev")
    endif()
    file(COPY /usr/include/${header_dir} DESTINATION ${TAVRIN_THIRD_PARTY_INCLUDE})
  endforeach()
  add_library(tavrin_cli11 INTERFACE)
  target_include_directories(tavrin_cli11 SYSTEM INTERFACE ${TAVRIN_THIRD_PARTY_INCLUDE})
  add_library(tavrin_json INTERFACE)
  target_include_directories(tavrin_json SYSTEM INTERFACE ${TAVRIN_THIRD_PARTY_INCLUDE})
else()
  find_package(CLI11 CONFIG REQUIRED)
  find_package(nlohmann_json CONFIG REQUIRED)
  add_library(tavrin_cli11 INTERFACE)
  target_link_libraries(tavrin_cli11 INTERFACE CLI11::CLI11)
  add_library(tavrin_json INTERFACE)
  target_link_libraries(tavrin_json INTERFACE nlohmann_json::nlohmann_json)
endif()

if(TAVRIN_BUILD_TESTS)
  if(CMAKE_CROSSCOMPILING)
    set(gtest_disable_pthreads OFF CACHE BOOL "" FORCE)
    set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
    add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
    # Newer GoogleTest sources define these names themselves.
    if(NOT TARGET GTest::gtest_main)
      add_library(GTest::gtest_main ALIAS gtest_main)
    endif()
    if(NOT TARGET GTest::gmock)
      add_library(GTest::gmock ALIAS gmock)
    endif()
  else()
    find_package(GTest REQUIRED)
  endif()
endif()
