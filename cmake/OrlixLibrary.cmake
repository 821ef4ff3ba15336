# One shared library per layer. Headers are reached through a link tree that holds one layer only, so that a file can
# include nothing but its own layer and what its library links.

include(OrlixInstructionSets)

set(ORLIX_VERSION_SCRIPT "${PROJECT_SOURCE_DIR}/cmake/ORLIX.map")

orlix_add_precompiled(orlix_precompiled OPTIONS -fPIC)

# orlix_add_library(<name> FAMILY <ORLIX|ORLIXIPL> [DEPENDS <libraries of the family>] [PUBLIC <targets>] [PRIVATE <targets>])
# A layer without sources is one of headers alone.
function(orlix_add_library name)
    cmake_parse_arguments(ARG "" "FAMILY" "DEPENDS;PUBLIC;PRIVATE" ${ARGN})
    set(home "${ARG_FAMILY}/${name}")
    set(layer "${PROJECT_BINARY_DIR}/layers/${name}")
    list(TRANSFORM ARG_DEPENDS PREPEND "ORLIX::" OUTPUT_VARIABLE lower_layers)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/src/${home}/*.cpp")
    foreach(face public private)
        set(tree "${layer}/include/${face}")
        file(MAKE_DIRECTORY "${tree}/${ARG_FAMILY}")
        if(IS_DIRECTORY "${PROJECT_SOURCE_DIR}/include/${face}/${home}")
            file(CREATE_LINK "${PROJECT_SOURCE_DIR}/include/${face}/${home}" "${tree}/${home}" SYMBOLIC)
        endif()
    endforeach()

    if(sources)
        add_library(${name} SHARED ${sources})
        orlix_use_precompiled(${name} orlix_precompiled)
        set(usage PUBLIC)
        orlix_set_kernel_flags(${sources})
        target_include_directories(${name} PRIVATE "${layer}/include/private")
        target_link_libraries(${name} PRIVATE ${ARG_PRIVATE})
        target_link_options(${name} PRIVATE "-Wl,--version-script=${ORLIX_VERSION_SCRIPT}")
        set_target_properties(${name} PROPERTIES LINK_DEPENDS "${ORLIX_VERSION_SCRIPT}")
        if(NOT ORLIX_SANITIZE OR CMAKE_CXX_COMPILER_ID STREQUAL "GNU") # Clang's sanitizers are linked to programs alone
            target_link_options(${name} PRIVATE -Wl,--no-undefined)
        endif()
        if(ORLIX_PLAIN_ALLOCATION)
            target_compile_definitions(${name} PRIVATE ORLIX_PLAIN_ALLOCATION)
        endif()
        set_target_properties(${name} PROPERTIES
            VERSION ${PROJECT_VERSION}
            SOVERSION ${PROJECT_VERSION_MAJOR}
            INSTALL_RPATH "$ORIGIN")
    else()
        add_library(${name} INTERFACE)
        set(usage INTERFACE)
    endif()
    add_library(ORLIX::${name} ALIAS ${name})
    target_link_libraries(${name} ${usage} ${lower_layers} ${ARG_PUBLIC})
    target_compile_features(${name} ${usage} cxx_std_20)
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}/include/public"
        "${PROJECT_SOURCE_DIR}/include/public/${home}/*.h")
    list(TRANSFORM headers PREPEND "${layer}/include/public/")
    target_sources(${name} ${usage} FILE_SET HEADERS BASE_DIRS "${layer}/include/public" FILES ${headers})

    set_property(GLOBAL APPEND PROPERTY ORLIX_LIBRARIES ${name})
    set_target_properties(${name} PROPERTIES ORLIX_DEPENDS "${ARG_DEPENDS}")
endfunction()
