# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

# One Debian package for each component: `cmake --workflow --preset package` makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each component has its own
set(CPACK_PACKAGE_VENDOR "the Quandrel device GUI authors")
# An address that reaches nobody: whoever publishes packages passes
# -D CPACK_PACKAGE_CONTACT="Name <address>" to cpack.
set(CPACK_PACKAGE_CONTACT "the Quandrel device GUI authors <authors@quandrel.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_COMPONENTS_ALL plugin library runtime development)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_COMPONENT_PLUGIN_DEPENDS library)
set(CPACK_COMPONENT_RUNTIME_DEPENDS library)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS library)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SOURCE quandrel)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")

set(qt_headers qt6-base-dev)
set(qt_translations qt6-translations-l10n)
if(QUANDREL_QT EQUAL 5)
  set(qt_headers qtbase5-dev)
  set(qt_translations qttranslations5-l10n)
endif()

set(CPACK_DEBIAN_PLUGIN_PACKAGE_NAME ${plugin_package})
set(CPACK_DEBIAN_PLUGIN_PACKAGE_ENHANCES ${runtime_package})
set(CPACK_COMPONENT_PLUGIN_DESCRIPTION "device plugin for the mobile robot Quandrel
The user interface of the robot in a host for device plugins, such as
${runtime_package}: a tool bar that connects to the robot, and a dialog
for its base, its manipulator and its laser rangefinder.")

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
# What packages of others with plugins depend on, and that the loader's cache is to know the library.
set(control "${CMAKE_CURRENT_BINARY_DIR}/control")
file(WRITE "${control}/shlibs" "libplugin_framework ${QUANDREL_ABI} ${library_package} (>= ${PROJECT_VERSION})\n")
file(WRITE "${control}/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA "${control}/shlibs;${control}/triggers")
file(WRITE "${control}/lintian-overrides" "# Beside the trigger CPack writes these scripts for every package with a library; they are harmless.
${library_package}: maintscript-calls-ldconfig
")
install(FILES "${control}/lintian-overrides"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides" RENAME ${library_package} COMPONENT library)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "framework of device plugins and their hosts
What a host for device plugins and the plugins that it loads share: the
base of the plugins' widgets, the values that pass between host and
plugin, and logs.")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime_package})
# The authorities that vouch for robots behind wss://, and Qt's own texts.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "${plugin_package}, ca-certificates, ${qt_translations}")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "host for device plugins, and a simulated mobile robot
The workbench loads a device plugin, connects it to a robot and shows what
passes between the two: the robot from above, its camera and arm, all
variables and calls. It injects faults, to see how a plugin copes.
.
The simulated robot speaks the rosbridge protocol with the standard message
types of ROS.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${development_package})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libboost-dev, ${qt_headers}")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "framework of device plugins (development files)
Headers, CMake and pkg-config files for building device plugins, and
programs that load them.")

# Debian's changelog, which every package must bring.
string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/changelog" "quandrel (${PROJECT_VERSION}) unstable; urgency=medium

  * Packages of version ${PROJECT_VERSION}. Its sources list in CHANGELOG.md what is new.

 -- ${CPACK_PACKAGE_CONTACT}  ${now}
")
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  install(FILES "${CMAKE_CURRENT_BINARY_DIR}/changelog"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${${component}_package}" COMPONENT ${component})
endforeach()
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_SOURCE_DIR}/compress.cmake")

include(CPack)
