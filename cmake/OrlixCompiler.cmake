# Language level, warnings and sanitizers that every target of the family shares.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

# Paths in objects are relative to the source folder, so that builds of two clones are the same and share a cache.
file(RELATIVE_PATH source_from_build "${PROJECT_BINARY_DIR}" "${PROJECT_SOURCE_DIR}")
add_compile_options(-ffile-prefix-map=${source_from_build}= -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=
    -ffile-prefix-map=${PROJECT_BINARY_DIR}/=)
find_program(ORLIX_CCACHE ccache)
if(ORLIX_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER env "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}"
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        "${ORLIX_CCACHE}")
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU") # precompiled headers can be cached only so
        add_compile_options(-fpch-preprocess)
    endif()
endif()

# What an error in our code could be used for is kept small: buffers and the stack are checked where the compiler can,
# and tables of addresses are read-only once a program has started. Sanitizers see more, and get in its way.
if(NOT ORLIX_SANITIZE)
    add_compile_options(-fstack-protector-strong "$<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
endif()
add_link_options(-Wl,-z,relro,-z,now)
# A symbol that is unique in the process would keep its library loaded for ever.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-fno-gnu-unique)
endif()

# Calls within a library go straight to their target.
add_compile_options(-fno-semantic-interposition)
add_link_options(-Wl,-Bsymbolic-functions)

# Stated results exclude fused multiply-add and reassociation, in every file.
add_compile_options(-Wall -Wextra -Wpedantic -ffp-contract=off)
# Idle processors are kept per thread, and every level of every call looks there: no call to find a thread's own data.
add_compile_options(-ftls-model=initial-exec -fno-plt)
if(ORLIX_WARNINGS_AS_ERRORS)
    add_compile_options(-Werror)
endif()
# For code that only calls the libraries, or parses options once: checks of undefined behaviour that stand at every
# pointer take most of the time to compile it. The libraries themselves have all of them.
set(ORLIX_LIGHT_SANITIZERS "")
if(ORLIX_SANITIZE)
    add_compile_options(-fsanitize=${ORLIX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    set(ORLIX_LIGHT_SANITIZERS -fno-sanitize=vptr,null,alignment,object-size)
    add_link_options(-fsanitize=${ORLIX_SANITIZE})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # With a sanitizer's calls in between, GCC 12 takes the buffer inside a std::string for the whole of it, and the
        # one of an empty boost::function, which no one reads, for a value that is used.
        add_compile_options(-Wno-array-bounds -Wno-stringop-overflow -Wno-maybe-uninitialized)
    endif()
endif()
