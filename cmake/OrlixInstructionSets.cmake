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
# compile them, up to 20 seconds each, so a change may leave it out. Those of ConvertImg, with its 121 pairs of types, and of
# random numbers, which are unrolled most, take minutes each and are always left out.
set(ORLIX_KERNEL_FLAGS -fno-stack-protector)
option(ORLIX_SANITIZE_KERNELS "Look for undefined behaviour in the kernel files of the sets, too" ON)
set(ORLIX_UNSANITIZED "$^") # matches no file
if(ORLIX_SANITIZE MATCHES "undefined")
    set(ORLIX_UNSANITIZED "/(ConvertImg|RandomImg|GaussianRandomImg)Lvl3_|/RandomTable_")
    if(NOT ORLIX_SANITIZE_KERNELS)
        set(ORLIX_UNSANITIZED ".")
    endif()
endif()
function(orlix_set_kernel_flags)
    foreach(source IN LISTS ARGN)
        foreach(suffix IN LISTS ORLIX_INSTRUCTION_SET_SUFFIXES)
            if(source MATCHES "_${suffix}\\.cpp$")
                set(flags ${ORLIX_FLAGS_${suffix}} ${ORLIX_KERNEL_FLAGS})
                if(source MATCHES "${ORLIX_UNSANITIZED}")
                    list(APPEND flags -fno-sanitize=undefined)
                endif()
                set_source_files_properties("${source}" PROPERTIES
                    COMPILE_OPTIONS "${flags}" SKIP_PRECOMPILE_HEADERS ON)
            endif()
        endforeach()
    endforeach()
endfunction()
