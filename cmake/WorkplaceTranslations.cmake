# workplace_translations(<target> <name> [<folder>] [ID_BASED]): compiles <folder>/<name>_<language>.ts, by default from
# the folder "translations" of the target, into it, as the resources ":/translations/<name>_<language>.qm". ID_BASED: the
# texts are asked for by ids, as in panels; then English is a translation like the others.
# scripts/update-translations keeps the .ts files up to date.

function(workplace_translations target name)
  cmake_parse_arguments(PARSE_ARGV 2 arg "ID_BASED" "" "")
  set(folder "${CMAKE_CURRENT_SOURCE_DIR}/translations")
  if(arg_UNPARSED_ARGUMENTS)
    set(folder "${arg_UNPARSED_ARGUMENTS}")
  endif()
  set(languages de fr)
  set(options "")
  if(arg_ID_BASED)
    list(PREPEND languages en)
    set(options -idbased)
  endif()
  set(entries "")
  foreach(language IN LISTS languages)
    set(source "${folder}/${name}_${language}.ts")
    set(compiled "${CMAKE_CURRENT_BINARY_DIR}/${name}_${language}.qm")
    # What is unfinished is left out and shown in English; a test finds it.
    add_custom_command(OUTPUT "${compiled}"
      COMMAND Qt5::lrelease -silent ${options} -nounfinished "${source}" -qm "${compiled}"
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
