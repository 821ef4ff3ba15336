# Headers from outside that nearly every file includes, compiled once for the libraries, the commands and the tests. No
# header of the family is among them, so no layer can lean on them to reach another; the test of public headers and
# kernel files do without. Clang gains little by them, and names them by their full path, which hides its objects from a
# compiler cache that another clone has filled.

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    set(precompile_default ON)
else()
    set(precompile_default OFF)
endif()
option(ORLIX_PRECOMPILE "Precompile the headers of Boost and the standard library" ${precompile_default})

# orlix_add_precompiled(<name> [HEADERS <further headers>] [LIBS <their targets>] [OPTIONS <compiler options>])
# The options have to be those of the targets that use it: -fPIE for programs, -fPIC for libraries.
function(orlix_add_precompiled name)
    if(NOT ORLIX_PRECOMPILE)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "LIBS;HEADERS;OPTIONS" ${ARGN})
    file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/${name}.cpp" CONTENT "// Carries the precompiled headers.\n")
    add_library(${name} OBJECT "${PROJECT_BINARY_DIR}/${name}.cpp")
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE OFF)
    target_compile_options(${name} PRIVATE ${ARG_OPTIONS})
    target_link_libraries(${name} PRIVATE Boost::headers ${ARG_LIBS})
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS}
        <algorithm> <cstring> <functional> <map> <memory> <mutex> <sstream> <string> <string_view> <vector>
        <boost/enable_shared_from_this.hpp> <boost/function.hpp> <boost/make_shared.hpp> <boost/shared_ptr.hpp>
        <boost/weak_ptr.hpp>)
endfunction()

# Compiles the target with the headers of orlix_add_precompiled(<name>).
function(orlix_use_precompiled target name)
    if(ORLIX_PRECOMPILE)
        target_precompile_headers(${target} REUSE_FROM ${name})
    endif()
endfunction()
