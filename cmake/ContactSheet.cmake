# Draws a contact sheet of the add-in's toolbar and menus for review: the
# toolbar "Tavrin" as a strip of buttons, then every control of every bar in
# screen order with its picture and caption, indented by its depth, a line
# above each group. The controls come from `tavrin commands`, the pictures
# from the converted bitmaps and their masks, drawn at twice their size.
# Run with: cmake -DTOOL=<command;...> -DPICTURES=<dir> -DCONVERT=<convert>
#                 -DOUTPUT=<file.png> -P ContactSheet.cmake
cmake_policy(VERSION 3.25)

execute_process(COMMAND ${TOOL} commands OUTPUT_VARIABLE listing RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${TOOL} commands failed (${result})")
endif()
string(REPLACE "\r" "" listing "${listing}")
string(REPLACE ";" "," listing "${listing}")
string(REPLACE "\n" ";" lines "${listing}")

get_filename_component(work ${OUTPUT} DIRECTORY)
set(work ${work}/contact_sheet)
file(REMOVE_RECURSE ${work})
file(MAKE_DIRECTORY ${work})

set(kScale 2)
set(kRow 40)
set(kIndent 36)
set(kColumnWidth 620)
set(kRowsPerColumn 34)
set(kStripTop 60)
set(kMenusTop 170)

# The picture with its mask as transparency, doubled pixel for pixel.
set(drawn_pictures)
function(picture_png id out)
  set(png ${work}/${id}.png)
  if(NOT id IN_LIST drawn_pictures)
    if(NOT EXISTS ${PICTURES}/${id}.bmp OR NOT EXISTS ${PICTURES}/${id}m.bmp)
      message(FATAL_ERROR "picture ${id} is in the command table but was not converted")
    endif()
    execute_process(
      COMMAND ${CONVERT} ${PICTURES}/${id}.bmp ( ${PICTURES}/${id}m.bmp -negate )
              -alpha off -compose CopyOpacity -composite -scale 200% PNG32:${png}
      RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
      message(FATAL_ERROR "could not draw picture ${id}")
    endif()
    set(drawn_pictures ${drawn_pictures} ${id} PARENT_SCOPE)
  endif()
  set(${out} ${png} PARENT_SCOPE)
endfunction()

set(draw)         # ImageMagick drawing arguments, in order
set(strip_x 16)
set(index 0)
set(bar "")
set(pictures 0)
set(controls 0)
foreach(line IN LISTS lines)
  if(line STREQUAL "")
    continue()
  endif()
  if(NOT line MATCHES "^ ")
    set(bar "${line}")
    set(caption "${line}")
    set(depth -1)
    set(group FALSE)
    set(id 0)
    set(flags "")
  elseif(line MATCHES "^( +)(\\| )?(.*) \\[([0-9]+)([^]]*)\\]( [A-Za-z_0-9]+)?$")
    string(LENGTH "${CMAKE_MATCH_1}" spaces)
    math(EXPR depth "${spaces} / 2 - 1")
    set(group ${CMAKE_MATCH_2})
    # Access keys are underlined on screen; here their marks go.
    string(REPLACE "&" "" caption "${CMAKE_MATCH_3}")
    set(id ${CMAKE_MATCH_4})
    set(flags "${CMAKE_MATCH_5}")
    math(EXPR controls "${controls} + 1")
  else()
    message(FATAL_ERROR "unexpected line of tavrin commands: ${line}")
  endif()
  string(REPLACE "%" "%%" caption "${caption}")
  if(flags MATCHES "popup")
    string(APPEND caption "  >")
  elseif(flags MATCHES "dropdown")
    string(APPEND caption "  [v]")
  endif()
  if(flags MATCHES "testing only")
    string(APPEND caption "  (testing only)")
  endif()

  # Its place in the columns of the menus.
  math(EXPR column "${index} / ${kRowsPerColumn}")
  math(EXPR row "${index} % ${kRowsPerColumn}")
  math(EXPR x "16 + ${column} * ${kColumnWidth} + (${depth} + 1) * ${kIndent}")
  math(EXPR y "${kMenusTop} + ${row} * ${kRow}")
  math(EXPR text_y "${y} + 27")
  math(EXPR text_x "${x} + 40")
  if(depth EQUAL -1)
    list(APPEND draw -font DejaVu-Sans-Bold -annotate +${x}+${text_y} "${caption}" -font DejaVu-Sans)
  else()
    if(group)
      math(EXPR line_x2 "${x} + 400")
      math(EXPR line_y "${y} + 1")
      list(APPEND draw -stroke "#A0A0A0" -draw "line ${x},${line_y} ${line_x2},${line_y}" -stroke none)
    endif()
    if(flags MATCHES "picture")
      picture_png(${id} png)
      math(EXPR pic_y "${y} + 4")
      list(APPEND draw -draw "image over ${x},${pic_y} 0,0 '${png}'")
      math(EXPR pictures "${pictures} + 1")
    endif()
    list(APPEND draw -annotate +${text_x}+${text_y} "${caption}")
  endif()

  # The toolbar's own controls, as the strip shows them: buttons as their
  # picture alone, pop-ups as their caption.
  if(bar STREQUAL "Tavrin" AND depth EQUAL 0)
    if(group)
      math(EXPR strip_x "${strip_x} + 6")
      math(EXPR sep_y2 "${kStripTop} + 44")
      list(APPEND draw -stroke "#808080" -draw "line ${strip_x},${kStripTop} ${strip_x},${sep_y2}" -stroke none)
      math(EXPR strip_x "${strip_x} + 8")
    endif()
    math(EXPR strip_text_y "${kStripTop} + 30")
    if(flags MATCHES "picture")
      math(EXPR pic_y "${kStripTop} + 6")
      list(APPEND draw -draw "image over ${strip_x},${pic_y} 0,0 '${png}'")
      math(EXPR strip_x "${strip_x} + 44")
    else()
      list(APPEND draw -annotate +${strip_x}+${strip_text_y} "${caption}")
      string(LENGTH "${caption}" length)
      math(EXPR strip_x "${strip_x} + ${length} * 13 + 16")
    endif()
  endif()
  math(EXPR index "${index} + 1")
endforeach()

math(EXPR columns "(${index} + ${kRowsPerColumn} - 1) / ${kRowsPerColumn}")
math(EXPR width "32 + ${columns} * ${kColumnWidth}")
math(EXPR height "${kMenusTop} + ${kRowsPerColumn} * ${kRow} + 20")
math(EXPR strip_bottom "${kStripTop} + 50")
execute_process(
  COMMAND ${CONVERT} -size ${width}x${height} "xc:#F0F0F0"
          -fill "#D4D0C8" -draw "rectangle 8,${kStripTop} ${strip_x},${strip_bottom}"
          -fill black -stroke none -font DejaVu-Sans-Bold -pointsize 22
          -annotate +16+36 "Tavrin: toolbar and menus (${controls} controls, ${pictures} with a picture)"
          -font DejaVu-Sans -pointsize 20 -stroke none -fill black
          ${draw} ${OUTPUT}
  RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "could not draw ${OUTPUT}")
endif()
message(STATUS "${OUTPUT}: ${controls} controls, ${pictures} pictures")
