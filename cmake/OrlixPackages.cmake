# Debian packages, one of each install component that programs need: `cpack -G DEB` in a build folder.

set(ORLIX_MAINTAINER "Nobody <nobody@localhost>" CACHE STRING "Who answers for Debian packages: name and address")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orlix)
set(CPACK_PACKAGE_CONTACT "${ORLIX_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Exact and fast operators for images of up to five axes")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL runtime development program)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(same_version "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

# What the libraries need of the system is read from them; the others name the libraries by themselves, since
# dpkg-shlibdeps knows none that aren't installed.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/lib")

set(library_package "liborlix${PROJECT_VERSION_MAJOR}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${library_package}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "The shared libraries.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME liborlix-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${library_package} ${same_version}, libboost-dev, libboost-filesystem-dev, libboost-thread-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Headers, and what CMake, pkg-config and linkers need to find the libraries.")

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME orlix)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "${library_package} ${same_version}")
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION "The operators on the command line.")

include(CPack)
