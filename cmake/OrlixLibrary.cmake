# One shared library a layer. Headers are reached through a link tree that holds one layer only, so that a file can
# include nothing but its own layer and what its library links.

include(OrlixInstructionSets)

# orlix_add_library(<name> FAMILY <ORLIX|ORLIXIPL> [DEPENDS <libraries of the family>] [PUBLIC <targets>] [PRIVATE <targets>])
function(orlix_add_library name)
    cmake_parse_arguments(ARG "" "FAMILY" "DEPENDS;PUBLIC;PRIVATE" ${ARGN})
    set(home "${ARG_FAMILY}/${name}")
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/src/${home}/*.cpp")
    if(NOT sources)
        message(STATUS "${name}: no sources")
        return()
    endif()
    orlix_set_kernel_flags(${sources})

    add_library(${name} SHARED ${sources})
    add_library(ORLIX::${name} ALIAS ${name})
    list(TRANSFORM ARG_DEPENDS PREPEND "ORLIX::")
    target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
    if(NOT ORLIX_SANITIZE OR CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_link_options(${name} PRIVATE -Wl,--no-undefined)
    endif()
    if(ORLIX_PLAIN_ALLOCATION)
        target_compile_definitions(${name} PRIVATE ORLIX_PLAIN_ALLOCATION)
    endif()

    foreach(face public private)
        set(tree "${PROJECT_BINARY_DIR}/layers/${name}/include/${face}")
        if(IS_DIRECTORY "${PROJECT_SOURCE_DIR}/include/${face}/${home}")
            file(MAKE_DIRECTORY "${tree}/${ARG_FAMILY}")
            file(CREATE_LINK "${PROJECT_SOURCE_DIR}/include/${face}/${home}" "${tree}/${home}" SYMBOLIC)
        endif()
    endforeach()
    file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/layers/${name}/include/private")
    target_include_directories(${name}
        PUBLIC "$<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/layers/${name}/include/public>"
               "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>"
        PRIVATE "${PROJECT_BINARY_DIR}/layers/${name}/include/private")

    set_target_properties(${name} PROPERTIES
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        INSTALL_RPATH "$ORIGIN")
    set_property(GLOBAL APPEND PROPERTY ORLIX_LIBRARIES ${name})
    install(TARGETS ${name} EXPORT ORLIXTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/public/${home}"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${ARG_FAMILY}" FILES_MATCHING PATTERN "*.h")
endfunction()
