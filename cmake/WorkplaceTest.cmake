# workplace_add_test(<name> [SOURCES …] [LIBRARIES …] [LABEL unit|system|slow] [DEFINITIONS …] [QUICK])
# One Qt Test program made of <name>.cpp and SOURCES. Labels: unit (no process, no terminal, no waiting), system (runs
# the built programs), slow (system, and longer than ten seconds). QUICK: it shows a Qt Quick scene.

find_package(Qt5 5.15 REQUIRED COMPONENTS Test)

function(workplace_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "QUICK" "LABEL" "SOURCES;LIBRARIES;DEFINITIONS")
  if(NOT arg_LABEL)
    set(arg_LABEL unit)
  endif()

  add_executable(${name} ${name}.cpp ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE workplace_options Qt5::Test ${arg_LIBRARIES})
  target_compile_definitions(${name} PRIVATE ${arg_DEFINITIONS})
  # What is tested is optimised; the tests themselves only cost time to build that way. _FORTIFY_SOURCE needs -O.
  target_compile_options(${name} PRIVATE -O0 -U_FORTIFY_SOURCE)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
  add_test(NAME ${name} COMMAND ${name})
  # What this user has configured is nothing to the tests. The time limit is that of CTest; Qt's own, five minutes for
  # a function, would come before it.
  set(environment QT_QPA_PLATFORM=offscreen TZ=UTC LC_ALL=C.UTF-8 QTEST_FUNCTION_TIMEOUT=7200000
    "XDG_CONFIG_HOME=${PROJECT_BINARY_DIR}/tests/no-configuration")
  if(arg_QUICK)
    # Stacks as deep as it takes to tell the leaks of Qt by the functions that they come from; deeper ones cost time.
    # And what was freed is kept for a short while only, for it counts as growth.
    list(APPEND environment QT_QUICK_BACKEND=software
      ASAN_OPTIONS=fast_unwind_on_malloc=0:malloc_context_size=16:quarantine_size_mb=4
      "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/sanitizers/leaks-of-qt.supp:print_suppressions=0")
  endif()
  set_tests_properties(${name} PROPERTIES LABELS ${arg_LABEL} ENVIRONMENT "${environment}")
endfunction()
