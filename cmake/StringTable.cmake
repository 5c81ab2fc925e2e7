# The string table: resources/strings.txt becomes a C++ source for the
# portable table (compiled into tavrin_core) and a resource script for the
# Windows binaries.
#
# The generator is a small C++ program. It must run on the build machine, so
# it is compiled with the host compiler at configure time: for a cross build
# CMAKE_CXX_COMPILER targets Windows and its output could not run here.
#
# Sets:
#   TAVRIN_GENERATED_DIR         folder of generated files (on the include path)
#   TAVRIN_STRING_TABLE_SOURCE   generated .cpp with LoadResString
#   TAVRIN_RESOURCE_SCRIPT       generated .rc with the STRINGTABLE

set(TAVRIN_GENERATED_DIR ${CMAKE_BINARY_DIR}/generated)
set(TAVRIN_STRING_TABLE_SOURCE ${TAVRIN_GENERATED_DIR}/string_table_data.cpp)
set(TAVRIN_RESOURCE_SCRIPT ${TAVRIN_GENERATED_DIR}/tavrin_strings.rc)

set(_tavrin_strings_txt ${PROJECT_SOURCE_DIR}/resources/strings.txt)
set(_tavrin_gen_source ${PROJECT_SOURCE_DIR}/resources/generator/string_table_gen.cpp)
set(_tavrin_gen_dir ${CMAKE_BINARY_DIR}/host_tools)
set(_tavrin_gen ${_tavrin_gen_dir}/string_table_gen${CMAKE_HOST_EXECUTABLE_SUFFIX})

if(CMAKE_CROSSCOMPILING)
  find_program(TAVRIN_HOST_CXX NAMES c++ g++ clang++
               DOC "C++ compiler of the build machine, for the build's own tools"
               NO_CMAKE_FIND_ROOT_PATH)
else()
  set(TAVRIN_HOST_CXX ${CMAKE_CXX_COMPILER} CACHE FILEPATH
      "C++ compiler of the build machine, for the build's own tools")
endif()
if(NOT TAVRIN_HOST_CXX)
  message(FATAL_ERROR "No host C++ compiler found for string_table_gen; set TAVRIN_HOST_CXX")
endif()

# Editing the generator reconfigures, which rebuilds it here.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${_tavrin_gen_source})
if(NOT EXISTS ${_tavrin_gen} OR ${_tavrin_gen_source} IS_NEWER_THAN ${_tavrin_gen})
  file(MAKE_DIRECTORY ${_tavrin_gen_dir})
  message(STATUS "Building string_table_gen with ${TAVRIN_HOST_CXX}")
  execute_process(
    COMMAND ${TAVRIN_HOST_CXX} -std=c++17 -O1 -o ${_tavrin_gen} ${_tavrin_gen_source}
    RESULT_VARIABLE _tavrin_gen_result
    OUTPUT_VARIABLE _tavrin_gen_output
    ERROR_VARIABLE _tavrin_gen_output)
  if(NOT _tavrin_gen_result EQUAL 0)
    file(REMOVE ${_tavrin_gen})
    message(FATAL_ERROR "Building string_table_gen failed:\n${_tavrin_gen_output}")
  endif()
endif()

# The depfile names strings.txt and every file it pulls in with @name, so
# editing either regenerates both outputs.
file(MAKE_DIRECTORY ${TAVRIN_GENERATED_DIR})
add_custom_command(
  OUTPUT ${TAVRIN_STRING_TABLE_SOURCE} ${TAVRIN_RESOURCE_SCRIPT}
  COMMAND ${_tavrin_gen} ${_tavrin_strings_txt} ${TAVRIN_STRING_TABLE_SOURCE}
          ${TAVRIN_RESOURCE_SCRIPT} ${TAVRIN_GENERATED_DIR}/string_table.d
  DEPENDS ${_tavrin_strings_txt} ${_tavrin_gen}
  DEPFILE ${TAVRIN_GENERATED_DIR}/string_table.d
  COMMENT "Generating the string table from resources/strings.txt"
  VERBATIM)

# The resource script goes into the Windows binaries through windres.
if(WIN32)
  enable_language(RC)
endif()

# The default add-in folder (resources/addin/ and the error-handling module)
# as a C++ source: TAVRIN_DEFAULT_FILES_SOURCE.
set(TAVRIN_DEFAULT_FILES_SOURCE ${TAVRIN_GENERATED_DIR}/default_addin_files.cpp)
file(GLOB_RECURSE _tavrin_addin_files CONFIGURE_DEPENDS
     RELATIVE ${PROJECT_SOURCE_DIR}/resources/addin ${PROJECT_SOURCE_DIR}/resources/addin/*)
list(SORT _tavrin_addin_files)
set(_tavrin_embed_pairs
    "${PROJECT_SOURCE_DIR}/resources/basErrorHandle.bas=vbcode/ErrorHandlers/basErrorHandle.bas")
set(_tavrin_embed_sources ${PROJECT_SOURCE_DIR}/resources/basErrorHandle.bas)
foreach(file IN LISTS _tavrin_addin_files)
  list(APPEND _tavrin_embed_pairs "${PROJECT_SOURCE_DIR}/resources/addin/${file}=${file}")
  list(APPEND _tavrin_embed_sources ${PROJECT_SOURCE_DIR}/resources/addin/${file})
endforeach()
# The help book, installed as help/ beside the add-in.
file(GLOB _tavrin_help_files CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/docs/help
     ${PROJECT_SOURCE_DIR}/docs/help/*.html ${PROJECT_SOURCE_DIR}/docs/help/*.css)
list(SORT _tavrin_help_files)
foreach(file IN LISTS _tavrin_help_files)
  list(APPEND _tavrin_embed_pairs "${PROJECT_SOURCE_DIR}/docs/help/${file}=help/${file}")
  list(APPEND _tavrin_embed_sources ${PROJECT_SOURCE_DIR}/docs/help/${file})
endforeach()
add_custom_command(
  OUTPUT ${TAVRIN_DEFAULT_FILES_SOURCE}
  COMMAND ${CMAKE_COMMAND} -DOUTPUT=${TAVRIN_DEFAULT_FILES_SOURCE}
          "-DFILES=${_tavrin_embed_pairs}" -P ${PROJECT_SOURCE_DIR}/cmake/EmbedFiles.cmake
  DEPENDS ${_tavrin_embed_sources} ${PROJECT_SOURCE_DIR}/cmake/EmbedFiles.cmake
  COMMENT "Embedding the default add-in folder"
  VERBATIM)
