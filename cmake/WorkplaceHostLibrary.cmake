# workplace_host_library(<target> EXPORT_NAME <name>): what the host's two libraries share: include folders, file names,
# versions, and their installation as a CMake package of the target's own name with the target Workplace::<name>.
# Two components: "libraries" is what runs, "development" is what else a plugin is built with.

include(CMakePackageConfigHelpers)

function(workplace_host_library target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "EXPORT_NAME" "")

  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:workplace_options>)
  target_compile_features(${target} PUBLIC cxx_std_17)
  target_include_directories(${target}
    PUBLIC
      $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>
      $<BUILD_INTERFACE:${CMAKE_CURRENT_BINARY_DIR}/include>
      $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
    PRIVATE
      source)
  set_target_properties(${target} PROPERTIES
    PREFIX ""
    EXPORT_NAME ${arg_EXPORT_NAME}
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    INSTALL_RPATH "$ORIGIN")

  set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/${target}")
  install(TARGETS ${target} EXPORT ${target}Targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
      COMPONENT libraries
      NAMELINK_COMPONENT development)
  install(DIRECTORY include/ "${CMAKE_CURRENT_BINARY_DIR}/include/"
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    COMPONENT development
    FILES_MATCHING PATTERN "*.h")
  install(EXPORT ${target}Targets NAMESPACE Workplace:: DESTINATION ${package_dir} COMPONENT development)

  configure_package_config_file(${target}Config.cmake.in ${target}Config.cmake
    INSTALL_DESTINATION ${package_dir})
  write_basic_package_version_file(${target}ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
  install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/${target}Config.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/${target}ConfigVersion.cmake"
    DESTINATION ${package_dir}
    COMPONENT development)
endfunction()
