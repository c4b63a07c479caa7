# Lets a console's own project use what is built here, and compile its console only:
# find_package(OrvaneDriver), with the build folder in OrvaneDriver_DIR, brings orvane_add_driver.

export(TARGETS orvane_driver orvane_console_stack orvane_exports orvane_refusing_console orvane_headers orvane_host_headers orvane_flags
    orvane_toolkit FILE "${PROJECT_BINARY_DIR}/OrvaneDriverTargets.cmake")
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/OrvaneDriverConfig.cmake" @ONLY CONTENT [[
include(CMakeFindDependencyMacro)
find_dependency(Threads)
include("${CMAKE_CURRENT_LIST_DIR}/OrvaneDriverTargets.cmake")
include("@PROJECT_SOURCE_DIR@/cmake/OrvaneAddDriver.cmake")
]])
