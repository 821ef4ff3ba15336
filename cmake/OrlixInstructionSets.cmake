# The one table of instruction sets: file suffix and compiler flags. core::isAvailable tests the same features.

set(ORLIX_INSTRUCTION_SET_SUFFIXES sse2 avx avx2 avx512)
set(ORLIX_FLAGS_sse2 -msse2)
set(ORLIX_FLAGS_avx -mavx)
set(ORLIX_FLAGS_avx2 -mavx2)
set(ORLIX_FLAGS_avx512 -mavx512f -mavx512bw -mavx512dq -mavx512vl -mprefer-vector-width=512)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    list(APPEND ORLIX_FLAGS_avx512 -Wno-maybe-uninitialized) # GCC 12 finds it in its own intrinsics
endif()

# Gives every file named <name>_<set>.cpp the flags of its set. Kernels keep packs on the stack, but no buffer whose end
# depends on what they are given: a check of the stack at each call would cost and find nothing. Plain kernels are the same
# templates, and there undefined behaviour is always looked for; in the files of the sets that takes most of the time to
# compile them, up to 40 seconds each, so a change may leave it out.
set(ORLIX_KERNEL_FLAGS -fno-stack-protector)
option(ORLIX_SANITIZE_KERNELS "Look for undefined behaviour in the kernel files of the sets, too" ON)
if(ORLIX_SANITIZE MATCHES "undefined" AND NOT ORLIX_SANITIZE_KERNELS)
    list(APPEND ORLIX_KERNEL_FLAGS -fno-sanitize=undefined)
endif()
function(orlix_set_kernel_flags)
    foreach(source IN LISTS ARGN)
        foreach(suffix IN LISTS ORLIX_INSTRUCTION_SET_SUFFIXES)
            if(source MATCHES "_${suffix}\\.cpp$")
                set_source_files_properties("${source}" PROPERTIES
                    COMPILE_OPTIONS "${ORLIX_FLAGS_${suffix}};${ORLIX_KERNEL_FLAGS}" SKIP_PRECOMPILE_HEADERS ON)
            endif()
        endforeach()
    endforeach()
endfunction()
