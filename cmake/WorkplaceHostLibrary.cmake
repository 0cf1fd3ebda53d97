# workplace_host_library(<target> EXPORT_NAME <name> DESCRIPTION <text> REQUIRES <pkg-config modules>): what the host's
# two libraries share: include folders, file names, versions, and their installation, as a CMake package of the target's
# own name with the target Workplace::<name>, and as a module of pkg-config of the same name.
# Two components: "libraries" is what runs, "development" is what else a plugin is built with.

include(CMakePackageConfigHelpers)

function(workplace_host_library target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "EXPORT_NAME;DESCRIPTION;REQUIRES" "")

  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:workplace_options>)
  target_compile_features(${target} PUBLIC cxx_std_17)
  target_include_directories(${target}
    PUBLIC
      $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>
      $<BUILD_INTERFACE:${CMAKE_CURRENT_BINARY_DIR}/include>
      $<INSTALL_INTERFACE:${WORKPLACE_INCLUDE_INSTALL_DIRECTORY}>
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
    LIBRARY DESTINATION ${WORKPLACE_LIBRARY_INSTALL_DIRECTORY}
      COMPONENT libraries
      NAMELINK_COMPONENT development)
  install(DIRECTORY include/ "${CMAKE_CURRENT_BINARY_DIR}/include/"
    DESTINATION ${WORKPLACE_INCLUDE_INSTALL_DIRECTORY}
    COMPONENT development
    FILES_MATCHING PATTERN "*.h")
  install(EXPORT ${target}Targets NAMESPACE Workplace:: DESTINATION ${package_dir} COMPONENT development)

  configure_package_config_file(${target}Config.cmake.in ${target}Config.cmake
    INSTALL_DESTINATION ${package_dir}
    PATH_VARS WORKPLACE_PLUGIN_INSTALL_DIRECTORY WORKPLACE_SHARED_INSTALL_DIRECTORY)
  write_basic_package_version_file(${target}ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
  install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/${target}Config.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/${target}ConfigVersion.cmake"
    DESTINATION ${package_dir}
    COMPONENT development)

  # Found from where it stands, like the CMake package, wherever the whole has been moved to.
  set(module_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
  file(RELATIVE_PATH prefix_from_here "/${module_dir}" "/")
  string(REGEX REPLACE "/$" "" prefix_from_here "${prefix_from_here}")
  string(REGEX REPLACE "^lib" "" link_name "${target}") # the linker puts "lib" before it
  configure_file("${PROJECT_SOURCE_DIR}/cmake/host_library.pc.in" ${target}.pc @ONLY)
  install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${target}.pc" DESTINATION "${module_dir}" COMPONENT development)
endfunction()
