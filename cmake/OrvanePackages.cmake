# The Debian packages: `cpack -G DEB` in the build folder makes one for each component.

set(ORVANE_PACKAGE_runtime libtvldriverorvanevirtuel${PROJECT_VERSION_MAJOR})
set(ORVANE_PACKAGE_development libtvldriverorvanevirtuel-dev)
set(ORVANE_PACKAGE_hosts orvane-hosts)
include(OrvaneInstall)

set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL runtime development hosts)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGE_CONTACT "Orvane driver developers <orvane@tavela.example>")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # Each package has its own.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SOURCE tvldriverorvanevirtuel)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${ORVANE_PACKAGE_runtime})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# Debian requires the trigger. CPack 3.25 adds scripts that call ldconfig, too.
file(WRITE "${PROJECT_BINARY_DIR}/packaging/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${PROJECT_BINARY_DIR}/packaging/triggers")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "driver library for Orvane consoles, virtual variant
Does everything that the driver of a real data-acquisition console does
towards its host, over a small model of a console in memory: channels with
names, units and ranges, instantaneous values, buffered acquisitions.

A second library has the laboratory behind it, a console whose channels,
outputs and instruments follow a scenario file.

A host loads a library by name or is linked with it.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${ORVANE_PACKAGE_development})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${ORVANE_PACKAGE_runtime} (= ${PROJECT_VERSION}), libwxgtk3.2-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "headers of the driver library for Orvane consoles
The headers with which a host application loads or links the library, and
what finds them: a CMake package and a pkg-config file.")

# The programs load the library by name.
set(CPACK_DEBIAN_HOSTS_PACKAGE_NAME ${ORVANE_PACKAGE_hosts})
set(CPACK_DEBIAN_HOSTS_PACKAGE_SECTION science)
set(CPACK_DEBIAN_HOSTS_PACKAGE_DEPENDS
    "${ORVANE_PACKAGE_runtime} (= ${PROJECT_VERSION}), fonts-dejavu-core")
set(CPACK_COMPONENT_HOSTS_DESCRIPTION "programs that measure with Orvane consoles
The command line orvane shows the console and its channels, reads values
and runs acquisitions to tables and pictures. The window orvane-panel lets
a person see the console at work.

Both work with the virtual console and with any other driver library.")
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
