# Install rules, each of a component: `runtime`, the libraries with the modules that they load; `development`, headers
# and what find_package, pkg-config and linkers need to find them; `program`; `documentation`. A wheel has `python`.

include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/ORLIX")
get_property(libraries GLOBAL PROPERTY ORLIX_LIBRARIES)
set(ORLIX_COMPONENTS "")
set(ORLIX_LINK_FLAGS "")
foreach(library IN LISTS libraries)
    install(TARGETS ${library} EXPORT ${library}Targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
    install(EXPORT ${library}Targets NAMESPACE ORLIX:: DESTINATION "${package_dir}" COMPONENT development)

    get_target_property(depends ${library} ORLIX_DEPENDS)
    string(APPEND ORLIX_COMPONENTS "set(_ORLIX_${library}_DEPENDS ${depends})\n")
    get_target_property(type ${library} TYPE)
    if(type STREQUAL "SHARED_LIBRARY")
        string(PREPEND ORLIX_LINK_FLAGS "-l${library} ")
    endif()
endforeach()
install(TARGETS ORLIXLog4cplus LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime)
if(TARGET ORLIXCuda)
    install(TARGETS ORLIXCuda LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime)
endif()

configure_package_config_file(cmake/ORLIXConfig.cmake.in "${PROJECT_BINARY_DIR}/ORLIXConfig.cmake"
    INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/ORLIXConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/ORLIXConfig.cmake" "${PROJECT_BINARY_DIR}/ORLIXConfigVersion.cmake"
    DESTINATION "${package_dir}" COMPONENT development)

file(RELATIVE_PATH ORLIX_PREFIX_FROM_PC "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
configure_file(cmake/ORLIX.pc.in "${PROJECT_BINARY_DIR}/ORLIX.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/ORLIX.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)

install(FILES LICENSE README.md SECURITY.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)

if(TARGET orlix)
    file(RELATIVE_PATH lib_from_bin "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
    set_target_properties(orlix PROPERTIES INSTALL_RPATH "$ORIGIN/${lib_from_bin}")
    install(TARGETS orlix RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
endif()
