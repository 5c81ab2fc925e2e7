# The toolbar and menu pictures: the icons named in resources/toolbar_icons.txt,
# taken from the FamFamFam Silk set and converted at build time with
# ImageMagick into the two 24-bit 16x16 bitmaps the command bars take: the
# picture (the icon over the button face, also the clipboard face) and its
# mask (black where the icon shows, white where the button shows through).
# Both are embedded as bytes in the core, which looks them up by name ("101",
# "101m"). Without the icon set or ImageMagick the build says so in one line
# and the core keeps its letter pictures.
#
# Sets:
#   TAVRIN_PICTURES_SOURCE   generated .cpp with ToolbarIconFiles()
#   TAVRIN_PICTURES_DIR      folder of the converted .bmp files, empty without them

set(TAVRIN_ICON_DIR /usr/share/icons/silk/16x16 CACHE PATH
    "The 16x16 PNG icons of the FamFamFam Silk set (Debian package famfamfam-silk)")
# convert-im6.q16 first: a plain "convert" on the path need not be ImageMagick.
find_program(TAVRIN_CONVERT NAMES convert-im6.q16 convert DOC "ImageMagick's convert")
find_program(TAVRIN_MONTAGE NAMES montage-im6.q16 montage DOC "ImageMagick's montage")

set(TAVRIN_PICTURES_SOURCE ${TAVRIN_GENERATED_DIR}/toolbar_icon_files.cpp)
set(TAVRIN_PICTURES_DIR)
set(_tavrin_icon_list ${PROJECT_SOURCE_DIR}/resources/toolbar_icons.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${_tavrin_icon_list})
file(STRINGS ${_tavrin_icon_list} _tavrin_icon_lines REGEX "^[0-9]+\t")

set(_tavrin_have_icons FALSE)
if(TAVRIN_CONVERT)
  execute_process(COMMAND ${TAVRIN_CONVERT} -version OUTPUT_VARIABLE _tavrin_convert_version
                  ERROR_QUIET RESULT_VARIABLE _tavrin_convert_result)
  if(_tavrin_convert_result EQUAL 0 AND _tavrin_convert_version MATCHES "ImageMagick")
    set(_tavrin_have_icons TRUE)
  endif()
endif()
set(_tavrin_missing_icons)
foreach(line IN LISTS _tavrin_icon_lines)
  string(REGEX MATCH "^([0-9]+)\t([a-z0-9_]+)" _ "${line}")
  if(NOT EXISTS ${TAVRIN_ICON_DIR}/${CMAKE_MATCH_2}.png)
    list(APPEND _tavrin_missing_icons ${CMAKE_MATCH_2})
  endif()
endforeach()

set(_tavrin_picture_pairs)
set(_tavrin_picture_files)
if(_tavrin_have_icons AND NOT _tavrin_missing_icons)
  set(TAVRIN_PICTURES_DIR ${CMAKE_BINARY_DIR}/pictures)
  file(MAKE_DIRECTORY ${TAVRIN_PICTURES_DIR})
  foreach(line IN LISTS _tavrin_icon_lines)
    string(REGEX MATCH "^([0-9]+)\t([a-z0-9_]+)" _ "${line}")
    set(id ${CMAKE_MATCH_1})
    set(png ${TAVRIN_ICON_DIR}/${CMAKE_MATCH_2}.png)
    set(picture ${TAVRIN_PICTURES_DIR}/${id}.bmp)
    set(mask ${TAVRIN_PICTURES_DIR}/${id}m.bmp)
    # BMP3 with -type TrueColor: a 24-bit bottom-up file without a colour
    # table, what CreateDIBitmap and the clipboard take.
    add_custom_command(
      OUTPUT ${picture} ${mask}
      COMMAND ${TAVRIN_CONVERT} ${png} -background "#C0C0C0" -alpha remove -alpha off
              -type TrueColor BMP3:${picture}
      COMMAND ${TAVRIN_CONVERT} ${png} -alpha extract -threshold 50% -negate
              -type TrueColor BMP3:${mask}
      DEPENDS ${png} ${_tavrin_icon_list}
      COMMENT "Converting picture ${id} from ${CMAKE_MATCH_2}.png"
      VERBATIM)
    list(APPEND _tavrin_picture_pairs "${picture}=${id}" "${mask}=${id}m")
    list(APPEND _tavrin_picture_files ${picture} ${mask})
  endforeach()
else()
  # One line, not CMake's warning block: the build goes on as it should.
  message(NOTICE "Warning: no ImageMagick or no FamFamFam Silk icons in ${TAVRIN_ICON_DIR} "
                 "(packages imagemagick, famfamfam-silk): the toolbar keeps its letter pictures")
endif()

add_custom_command(
  OUTPUT ${TAVRIN_PICTURES_SOURCE}
  COMMAND ${CMAKE_COMMAND} -DOUTPUT=${TAVRIN_PICTURES_SOURCE} "-DFILES=${_tavrin_picture_pairs}"
          -DFUNCTION=ToolbarIconFiles -DHEADER=resources/toolbar_pictures.h
          -P ${PROJECT_SOURCE_DIR}/cmake/EmbedFiles.cmake
  DEPENDS ${_tavrin_picture_files} ${PROJECT_SOURCE_DIR}/cmake/EmbedFiles.cmake
  COMMENT "Embedding the toolbar pictures"
  VERBATIM)
