# The Debian packages: "haitor-workplace" is what runs, "haitor-workplace-dev" what else a plugin is built with.
# scripts/make-packages makes and checks them; a build by hand needs CMAKE_INSTALL_PREFIX=/usr, as the preset "package"
# has it.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME haitor-workplace)
set(CPACK_PACKAGE_VENDOR "Haitor Workplace")
set(CPACK_PACKAGE_CONTACT "Haitor Workplace maintainers <maintainers@users.noreply.haitor-workplace.example>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_VERBATIM_VARIABLES ON)

set(CPACK_COMPONENTS_ALL libraries workplace development)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEB_COMPONENT_INSTALL ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME haitor-workplace)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION science)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "workplace for a wireless torque wrench
It drives wireless torque wrenches through a radio dongle on a serial port:
finds the wrench, connects, configures, reads and selects its programs, locks
it, and stores each tightening result before it is shown. A link that is lost
is restored; a doctor says what is wrong and how to mend it.
.
The package holds the command-line and window application, the plugins of the
wrench and of the serial port, the host's libraries, and a simulator of dongle
and wrenches.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/lib")
# What is loaded by name while it runs, and so is seen by no linker: the history's database, the window's QML modules,
# and the reader of its icons.
string(JOIN ", " CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS
  libqt5sql5-sqlite
  libqt5svg5
  qml-module-qtquick-controls2
  qml-module-qtquick-templates2
  qml-module-qtquick-window2
  qml-module-qtquick2)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SUGGESTS "haitor-workplace-dev")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME haitor-workplace-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "headers and CMake packages to write plugins for haitor-workplace
What a device plugin of one's own is built and tested with: the headers of the
host's two libraries, their CMake packages and pkg-config files, the frame of
maintenance panels, the source of a sample plugin, and a page that leads from
an empty folder to a plugin with a command, a panel and a test.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "haitor-workplace (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}), qtbase5-dev")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_RECOMMENDS "cmake, g++, qtdeclarative5-dev")

set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/packaging/complete_packages.cmake")
set(CPACK_WORKPLACE_SOURCE_FOLDER "${PROJECT_SOURCE_DIR}") # for that script

include(CPack)
cpack_add_component(libraries GROUP runtime)
cpack_add_component(workplace GROUP runtime DEPENDS libraries)
cpack_add_component(development GROUP development DEPENDS libraries)
cpack_add_component_group(runtime)
cpack_add_component_group(development)

# Long, and it wants root: no part of the tests. 77: it could not be tried here, and said so.
add_custom_target(check_packages
  COMMAND sh -c "\"$1\" || test $? -eq 77" sh "${PROJECT_SOURCE_DIR}/scripts/check-packages"
  USES_TERMINAL
  VERBATIM)
