# What Windows shows of a program: its icon, its version, and how it is to be started.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(ICON_CONVERT convert REQUIRED)
set(ORVEL_DRAWN ${CMAKE_BINARY_DIR}/drawn)
file(MAKE_DIRECTORY ${ORVEL_DRAWN})

# Sets `drawn` to a picture of a drawing that is as wide as `size`.
function(orvel_draw drawing size drawn)
  get_filename_component(name ${drawing} NAME_WE)
  set(picture ${ORVEL_DRAWN}/${name}.${size}.png)
  cmake_path(ABSOLUTE_PATH drawing)
  add_custom_command(OUTPUT ${picture}
    COMMAND ${RSVG_CONVERT} --keep-aspect-ratio --width ${size} --output ${picture} ${drawing}
    DEPENDS ${drawing}
    VERBATIM
  )
  set(${drawn} ${picture} PARENT_SCOPE)
endfunction()

set(icon ${ORVEL_DRAWN}/orvelsuite.ico)
set(sign ${PROJECT_SOURCE_DIR}/src/desktop/forms/pictures/orvelsuite.svg)
set(signs "")
set(sign_commands "")
foreach(size 16 20 24 32 40 48 64 256)
  set(picture ${ORVEL_DRAWN}/icon.${size}.png)
  list(APPEND signs ${picture})
  list(APPEND sign_commands COMMAND ${RSVG_CONVERT} --width ${size} --height ${size} --output ${picture} ${sign})
endforeach()
add_custom_command(OUTPUT ${icon}
  ${sign_commands}
  COMMAND ${ICON_CONVERT} ${signs} ${icon}
  DEPENDS ${sign}
  VERBATIM
)
add_custom_target(orvel_icon DEPENDS ${icon})

# Gives a program the icon, a version and a description.
function(orvel_describe target version description)
  get_target_property(name ${target} OUTPUT_NAME)
  if(NOT name)
    set(name ${target})
  endif()
  string(REGEX REPLACE "\\.exe$" "" name ${name})
  string(REGEX MATCHALL "[0-9]+" numbers ${version})
  list(APPEND numbers 0 0 0)
  list(SUBLIST numbers 0 4 numbers)
  list(TRANSFORM numbers REPLACE "^0+([0-9])" "\\1")
  list(JOIN numbers "," numbers)
  set(resources ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${resources} @ONLY)
  # Apart from the program's sources, whose options are not for this compiler.
  add_library(${target}_resources OBJECT ${resources})
  set_target_properties(${target}_resources PROPERTIES AUTOMOC OFF)
  set_source_files_properties(${resources} PROPERTIES
    OBJECT_DEPENDS "${icon};${PROJECT_SOURCE_DIR}/packaging/windows/program.manifest"
  )
  add_dependencies(${target}_resources orvel_icon)
  target_sources(${target} PRIVATE $<TARGET_OBJECTS:${target}_resources>)
endfunction()
