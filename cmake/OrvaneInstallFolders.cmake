# Where things are installed, below the prefix.

# Debian's loader, pkg-config and CMake look in the folder of the architecture, under /usr/local as
# under /usr; so one build serves both an installation and the packages.
if(EXISTS /etc/debian_version AND CMAKE_LIBRARY_ARCHITECTURE)
    set(CMAKE_INSTALL_LIBDIR "lib/${CMAKE_LIBRARY_ARCHITECTURE}" CACHE PATH "Folder of libraries")
endif()
include(GNUInstallDirs)
