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

find_program(ORLIX_CCACHE ccache)
if(ORLIX_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${ORLIX_CCACHE}")
endif()

# Stated results exclude fused multiply-add and reassociation, in every file.
add_compile_options(-Wall -Wextra -Wpedantic -ffp-contract=off)
if(ORLIX_WARNINGS_AS_ERRORS)
    add_compile_options(-Werror)
endif()
if(ORLIX_SANITIZE)
    add_compile_options(-fsanitize=${ORLIX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${ORLIX_SANITIZE})
endif()
