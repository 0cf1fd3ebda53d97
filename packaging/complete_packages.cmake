# Run by CPack between staging and packing: what Debian wants in a package and an installation by hand does without.
# Manual pages and changelogs are compressed, and say the same date for the same SOURCE_DATE_EPOCH.

cmake_policy(VERSION 3.25)
find_program(gzip gzip REQUIRED)
string(TIMESTAMP today "%a, %d %b %Y %H:%M:%S +0000" UTC) # of SOURCE_DATE_EPOCH where it is set
set(packaging "${CPACK_WORKPLACE_SOURCE_FOLDER}/packaging")

function(compress)
  execute_process(COMMAND "${gzip}" -9 --no-name --force ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

foreach(group IN ITEMS RUNTIME DEVELOPMENT)
  set(package "${CPACK_DEBIAN_${group}_PACKAGE_NAME}")
  string(TOLOWER "${group}" staged)
  set(staged "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${staged}${CPACK_PACKAGING_INSTALL_PREFIX}")
  set(documents "${staged}/share/doc/${package}")

  file(CONFIGURE OUTPUT "${documents}/changelog.Debian" @ONLY CONTENT
"haitor-workplace (@CPACK_PACKAGE_VERSION@-@CPACK_DEBIAN_PACKAGE_RELEASE@) bookworm; urgency=medium

  * The changes stand in changelog.gz.

 -- @CPACK_PACKAGE_CONTACT@  @today@
")
  file(COPY_FILE "${CPACK_WORKPLACE_SOURCE_FOLDER}/CHANGELOG.md" "${documents}/changelog")
  file(GLOB pages "${staged}/share/man/man*/*.[0-9]")
  compress(${pages} "${documents}/changelog" "${documents}/changelog.Debian")

  file(COPY "${packaging}/lintian/${package}" DESTINATION "${staged}/share/lintian/overrides")
endforeach()
