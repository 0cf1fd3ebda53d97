# Installs the host libraries from BUILD_DIR into WORK_DIR and builds the sample plugin against them, as somebody outside
# this repository would. Run with cmake -P.

file(REMOVE_RECURSE "${WORK_DIR}")
foreach(component IN ITEMS libraries development)
  execute_process(
    COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${WORK_DIR}/prefix" --component ${component}
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
execute_process(
  COMMAND "${CMAKE_COMMAND}" -S "${SAMPLE_DIR}" -B "${WORK_DIR}/build" -G "${GENERATOR}"
    "-DCMAKE_CXX_COMPILER=${COMPILER}" -DCMAKE_BUILD_TYPE=Release "-DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix"
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${CMAKE_COMMAND}" --build "${WORK_DIR}/build" COMMAND_ERROR_IS_FATAL ANY)
