# Checks of the sources, each a target that fails when it finds something: format, tidy, clazy.

foreach(check IN ITEMS format tidy clazy)
  add_custom_target(${check}
    COMMAND "${PROJECT_SOURCE_DIR}/scripts/check-${check}" "${PROJECT_BINARY_DIR}"
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
    USES_TERMINAL
    VERBATIM)
endforeach()
