# Tests: one executable for each subsystem, run case by case by ctest, and programs whose output is compared.

set(ZOREDID_SHARED_DIR "" CACHE PATH "Folder with corpus/ for further tests (see docs/test-data.md)")
if(ZOREDID_SHARED_DIR AND NOT IS_DIRECTORY "${ZOREDID_SHARED_DIR}")
  message(FATAL_ERROR "ZOREDID_SHARED_DIR names no folder: ${ZOREDID_SHARED_DIR}")
endif()

# What every test includes, compiled once: two of the three seconds that each source took.
function(zor_test_headers target)
  if(NOT TARGET zor_test_headers)
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/zor_test_headers.cpp CONTENT "")
    add_library(zor_test_headers OBJECT ${CMAKE_CURRENT_BINARY_DIR}/zor_test_headers.cpp)
    zor_target_defaults(zor_test_headers)
    target_link_libraries(zor_test_headers PRIVATE GTest::gmock)
    target_precompile_headers(zor_test_headers PRIVATE <gtest/gtest.h> <fstream> <sstream>)
  endif()
  target_precompile_headers(${target} REUSE_FROM zor_test_headers)
endfunction()

function(zor_add_test target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${target} ${ARG_SOURCES})
  zor_target_defaults(${target})
  # g++ 12 takes the memory moves inside std::vector::insert for accesses out of bounds, and those of std::string for
  # overlapping ones. The sanitizer build watches them.
  target_compile_options(${target} PRIVATE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds -Wno-restrict -Wno-stringop-overflow -Wno-stringop-overread>)
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/ExternalDeviceLayer/Tests/UnitTests/Support")
  target_compile_definitions(${target} PRIVATE ZOREDID_SHARED_DIR="${ZOREDID_SHARED_DIR}"
                                               ZOREDID_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(${target} PRIVATE ${ARG_LINKS} ZorEdid_internals GTest::gmock GTest::gtest_main)
  zor_test_headers(${target})
  gtest_discover_tests(${target} TEST_PREFIX "${target}." DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()

# A test that runs a program without input. It passes when the program exits with 0 and its standard output is the
# stored file EXPECTED of the present folder, byte for byte. The output stays in the build folder as NAME.actual.
#   zor_add_output_test(NAME PROGRAM TARGET EXPECTED FILE [ARGUMENTS ARGUMENT...])
function(zor_add_output_test name)
  cmake_parse_arguments(ARG "" "PROGRAM;EXPECTED" "ARGUMENTS" ${ARGN})
  add_test(NAME ${name}
    COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:${ARG_PROGRAM}> "-DARGUMENTS=${ARG_ARGUMENTS}"
            -DEXPECTED=${CMAKE_CURRENT_SOURCE_DIR}/${ARG_EXPECTED} -DACTUAL=${CMAKE_CURRENT_BINARY_DIR}/${name}.actual
            -P ${PROJECT_SOURCE_DIR}/cmake/ZorEdidCheckOutput.cmake)
endfunction()
