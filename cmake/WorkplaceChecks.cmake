# Checks of the sources, each a target that fails when it finds something: format, tidy. clazy is the compiler of the
# preset "asan".

foreach(check IN ITEMS format tidy)
  add_custom_target(${check}
    COMMAND "${PROJECT_SOURCE_DIR}/scripts/check-${check}" "${PROJECT_BINARY_DIR}"
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
    USES_TERMINAL
    VERBATIM)
endforeach()
