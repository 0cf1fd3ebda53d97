# What every target of ours is built with. Link `workplace_options` PRIVATE: it is no part of any public face.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# Hardening, of everything that is linked: programs at a random address, and tables that are read-only once it runs.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
add_link_options(LINKER:-z,relro,-z,now)

# One place for what is loaded and run, so that programs find libraries and plugins beside them, built or installed.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(WORKPLACE_PLUGIN_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib/plugins")
# Installed, they have a folder of their own: their names are too plain for the folder of everybody's libraries.
set(WORKPLACE_LIBRARY_INSTALL_DIRECTORY "${CMAKE_INSTALL_LIBDIR}/haitor-workplace")
set(WORKPLACE_PLUGIN_INSTALL_DIRECTORY "${WORKPLACE_LIBRARY_INSTALL_DIRECTORY}/plugins")
set(WORKPLACE_INCLUDE_INSTALL_DIRECTORY "${CMAKE_INSTALL_INCLUDEDIR}/haitor-workplace")
set(WORKPLACE_SHARED_INSTALL_DIRECTORY "${CMAKE_INSTALL_DATADIR}/haitor-workplace")

add_library(workplace_options INTERFACE)
target_compile_options(workplace_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
  -fstack-protector-strong -fstack-clash-protection
  # Qt's logging macros are called without their optional arguments.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>)
target_compile_definitions(workplace_options INTERFACE
  QT_NO_CAST_FROM_ASCII
  QT_NO_CAST_TO_ASCII
  QT_NO_KEYWORDS
  QT_NO_URL_CAST_FROM_STRING
  QT_DISABLE_DEPRECATED_BEFORE=0x050F00
  # Debian ships Qt's release libraries only, and a plugin says in its metadata which kind it was built for:
  # always the release kind, with Qt's assertions kept where they help.
  QT_NO_DEBUG
  $<$<CONFIG:Debug>:QT_FORCE_ASSERTS>
  # It needs optimisation, and hides from the sanitizers what they look at; their presets are debug builds.
  $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:_FORTIFY_SOURCE=2>)
