# workplace_translations(<target> <name> [<folder>]): compiles <folder>/<name>_<language>.ts, by default from the folder
# "translations" of the target, into it, as the resources ":/translations/<name>_<language>.qm".
# scripts/update-translations keeps the .ts files up to date.

function(workplace_translations target name)
  set(folder "${CMAKE_CURRENT_SOURCE_DIR}/translations")
  if(ARGC GREATER 2)
    set(folder "${ARGV2}")
  endif()
  set(entries "")
  foreach(language IN ITEMS de fr)
    set(source "${folder}/${name}_${language}.ts")
    set(compiled "${CMAKE_CURRENT_BINARY_DIR}/${name}_${language}.qm")
    # What is unfinished is left out and shown in English; a test finds it.
    add_custom_command(OUTPUT "${compiled}"
      COMMAND Qt5::lrelease -silent -nounfinished "${source}" -qm "${compiled}"
      DEPENDS "${source}"
      VERBATIM)
    list(APPEND files "${compiled}")
    string(APPEND entries "<file>${name}_${language}.qm</file>")
  endforeach()
  set(list "${CMAKE_CURRENT_BINARY_DIR}/${name}_translations.qrc")
  file(CONFIGURE OUTPUT "${list}" CONTENT "<RCC><qresource prefix=\"/translations\">${entries}</qresource></RCC>\n")
  set(resource "${CMAKE_CURRENT_BINARY_DIR}/qrc_${name}_translations.cpp")
  add_custom_command(OUTPUT "${resource}"
    COMMAND Qt5::rcc --name ${name}_translations "${list}" -o "${resource}"
    DEPENDS "${list}" ${files}
    VERBATIM)
  set_source_files_properties("${resource}" PROPERTIES SKIP_AUTOMOC ON)
  target_sources(${target} PRIVATE "${resource}")
endfunction()
