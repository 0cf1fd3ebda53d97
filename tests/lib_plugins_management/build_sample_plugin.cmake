# Installs everything from BUILD_DIR, moves it to another folder below WORK_DIR, and uses it there as somebody outside
# this repository would: a session on the simulated wrench, and the sample plugin built against the host libraries. Run
# with cmake -P.

file(REMOVE_RECURSE "${WORK_DIR}")
execute_process(
  COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${WORK_DIR}/elsewhere"
  OUTPUT_QUIET
  COMMAND_ERROR_IS_FATAL ANY)
set(prefix "${WORK_DIR}/prefix")
file(RENAME "${WORK_DIR}/elsewhere" "${prefix}")

file(GLOB_RECURSE texts LIST_DIRECTORIES false
  "${prefix}/lib/*.cmake" "${prefix}/lib/*.pc" "${prefix}/include/*.h" "${prefix}/share/*")
foreach(text IN LISTS texts)
  file(READ "${text}" content)
  foreach(place IN ITEMS "${WORK_DIR}" "${BUILD_DIR}" "${SOURCE_DIR}")
    string(FIND "${content}" "${place}" at)
    if(NOT at EQUAL -1)
      message(FATAL_ERROR "${text} names ${place}")
    endif()
  endforeach()
endforeach()

execute_process(
  COMMAND "${prefix}/bin/app_workplace" --config= --data "${WORK_DIR}/data" session --count 1
  OUTPUT_VARIABLE said
  COMMAND_ERROR_IS_FATAL ANY)
if(NOT said MATCHES "\n1 result: ")
  message(FATAL_ERROR "the installed session took no result:\n${said}")
endif()

execute_process(
  COMMAND "${CMAKE_COMMAND}" -S "${SOURCE_DIR}/examples/sample_plugin" -B "${WORK_DIR}/build" -G "${GENERATOR}"
    "-DCMAKE_CXX_COMPILER=${COMPILER}" -DCMAKE_BUILD_TYPE=Release "-DCMAKE_PREFIX_PATH=${prefix}"
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${CMAKE_COMMAND}" --build "${WORK_DIR}/build" COMMAND_ERROR_IS_FATAL ANY)
