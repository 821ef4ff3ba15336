# Test programs: one per library, built from every file of tests/<library>.

find_package(GTest REQUIRED)
find_package(rapidcheck REQUIRED)

set(ORLIX_TEST_OPTIMISATION "$<$<CONFIG:Release>:-O1>") # tests are run once: compiling them takes longer
orlix_add_precompiled(orlix_precompiled_tests HEADERS <gtest/gtest.h> LIBS GTest::gtest
    OPTIONS -fPIE ${ORLIX_TEST_OPTIMISATION})

set(ORLIX_TEST_SKIPPED 77) # exit status of a test program that can't run here

# orlix_add_tests(<library or program> [DATA] [FRAME] [GPU] [OPERATORS] [PER_SET] [LIBS <further targets>])
# DATA tells the program where its sample files are, tests/<library>/samples, as ORLIX_TEST_DATA_DIR. FRAME gives it the
# main of tests/support, which takes the instruction set, the executor and the devices from the environment; it is for
# layers from ORLIXBaseProcessing on. GPU, which needs FRAME, runs the tests named GpuOperators.* once more, on a real
# device. OPERATORS, which needs FRAME, gives it the checks of tests/support/PixelwiseTest.h. PER_SET, which needs FRAME,
# runs the program once more per instruction set, with that set forced; so it does, when asked, with the tests named
# *LongTest.DISABLED_*, which take minutes. A library whose folder holds no tests has no program.
function(orlix_add_tests library)
    cmake_parse_arguments(ARG "DATA;FRAME;GPU;OPERATORS;PER_SET" "" "LIBS" ${ARGN})
    set(program "${library}Tests")
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/${library}/*.cpp")
    if(NOT sources)
        message(STATUS "${library}: no tests")
        return()
    endif()
    orlix_set_kernel_flags(${sources})
    foreach(source IN LISTS sources)
        if(source MATCHES "LongTest\\.cpp$") # worth its optimisation, unlike the others
            set_source_files_properties("${source}" PROPERTIES
                COMPILE_OPTIONS "$<$<CONFIG:Release>:-O3>" SKIP_PRECOMPILE_HEADERS ON)
        endif()
    endforeach()
    set(main GTest::gtest_main)
    if(ARG_FRAME)
        list(APPEND sources "${PROJECT_SOURCE_DIR}/tests/support/main.cpp")
        set(main GTest::gtest)
    endif()
    if(ARG_OPERATORS)
        list(APPEND sources "${PROJECT_SOURCE_DIR}/tests/support/PixelwiseImagesTest.cpp"
            "${PROJECT_SOURCE_DIR}/tests/support/PixelwiseRunsTest.cpp"
            "${PROJECT_SOURCE_DIR}/tests/support/PixelwiseStridesTest.cpp")
    endif()
    add_executable(${program} ${sources})
    orlix_use_precompiled(${program} orlix_precompiled_tests)
    target_include_directories(${program} PRIVATE
        "${PROJECT_BINARY_DIR}/layers/${library}/include/private" "${PROJECT_SOURCE_DIR}/tests")
    target_compile_definitions(${program} PRIVATE ORLIX_TEST_SKIPPED=${ORLIX_TEST_SKIPPED})
    target_compile_options(${program} PRIVATE ${ORLIX_TEST_OPTIMISATION} ${ORLIX_LIGHT_SANITIZERS})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(${program} PRIVATE -Wno-array-bounds -Wno-stringop-overflow) # GCC 12 finds them in std::string's own code at -O1
    endif()
    if(ARG_DATA)
        target_compile_definitions(${program} PRIVATE ORLIX_TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/${library}/samples")
    endif()
    target_link_libraries(${program} PRIVATE ${ARG_LIBS} ${main} rapidcheck)
    if(TARGET ORLIX::${library})
        target_link_libraries(${program} PRIVATE ORLIX::${library})
    endif()
    set_property(GLOBAL APPEND PROPERTY ORLIX_TEST_PROGRAMS ${program})
    add_test(NAME ${library} COMMAND ${program})
    set(tests ${library})
    if(ARG_GPU)
        add_test(NAME ${library}.gpu COMMAND ${program} --gtest_filter=GpuOperators.*)
        set_tests_properties(${library}.gpu PROPERTIES ENVIRONMENT ORLIX_TEST_GPU_LAYER=cuda LABELS gpu
            SKIP_RETURN_CODE ${ORLIX_TEST_SKIPPED} TIMEOUT 900)
    endif()
    if(ARG_PER_SET)
        set(sets plain ${ORLIX_INSTRUCTION_SET_SUFFIXES})
        set(left_out "*verySet*:*RegisteredProcessor*:Gpu*")
        if(ORLIX_SANITIZE MATCHES "thread") # kernels share nothing between threads, whatever the set
            set(sets plain)
            # What a kernel makes of a value, and images as large as the last-level cache, which may be huge.
            set(values "*KernelsTest.*:*ValuesTest.*:*PairsTest.*:*NearLimitTest*:*EverySet*")
            string(APPEND values ":*.largeImage*:*.halfOfTheLastLevelCache*")
            set_property(TEST ${library} APPEND PROPERTY ENVIRONMENT "GTEST_FILTER=-${values}")
            string(APPEND left_out ":${values}")
        endif()
        foreach(set IN LISTS sets)
            add_test(NAME ${library}.${set} COMMAND ${program})
            # Left out is what goes through every set by itself, and what no kernel takes part in: ${library} has it.
            set_property(TEST ${library}.${set} APPEND PROPERTY ENVIRONMENT "ORLIX_TEST_INSTRUCTION_SET=${set}"
                "GTEST_FILTER=-${left_out}")
            list(APPEND tests ${library}.${set})
            # Left out of every run but `ctest -C long`: disabled in the program, and known to that configuration alone.
            add_test(NAME ${library}.${set}.long CONFIGURATIONS long
                COMMAND ${program} --gtest_also_run_disabled_tests "--gtest_filter=*LongTest.*")
            set_tests_properties(${library}.${set}.long PROPERTIES ENVIRONMENT "ORLIX_TEST_INSTRUCTION_SET=${set}"
                SKIP_RETURN_CODE ${ORLIX_TEST_SKIPPED} LABELS long RUN_SERIAL TRUE TIMEOUT 3600)
        endforeach()
    endif()
    if(ORLIX_SANITIZE MATCHES "thread") # it can't see how oneTBB synchronises
        set_property(TEST ${tests} APPEND PROPERTY ENVIRONMENT "ORLIX_TEST_EXECUTOR=threads:4")
    endif()
    set(seconds 900)
    if(ORLIX_SANITIZE MATCHES "thread")
        set(seconds 1800)
    endif()
    set_tests_properties(${tests} PROPERTIES SKIP_RETURN_CODE ${ORLIX_TEST_SKIPPED} TIMEOUT ${seconds})
endfunction()
