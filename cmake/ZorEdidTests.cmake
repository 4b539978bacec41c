# Test executables: one for each subsystem, run case by case by ctest.

# Where the reference tables and real EDID images lie when they are present; tests that want them skip otherwise.
set(ZOREDID_SHARED_DIR "${PROJECT_SOURCE_DIR}/../shared" CACHE PATH "Folder with reference/ and corpus/ (optional)")

function(zor_add_test target)
  cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LINKS;LABELS" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 300)
  endif()
  add_executable(${target} ${ARG_SOURCES})
  zor_target_defaults(${target})
  # g++ 12 takes the memory moves inside std::vector::insert for accesses out of bounds; the sanitizer build watches them.
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread>)
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/ExternalDeviceLayer/Tests/UnitTests/Support")
  target_compile_definitions(${target} PRIVATE ZOREDID_SHARED_DIR="${ZOREDID_SHARED_DIR}"
                                               ZOREDID_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(${target} PRIVATE ${ARG_LINKS} GTest::gmock GTest::gtest_main)
  gtest_discover_tests(${target} TEST_PREFIX "${target}." DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT ${ARG_TIMEOUT} LABELS "${ARG_LABELS}")
endfunction()
