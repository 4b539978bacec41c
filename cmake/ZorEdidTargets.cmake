# What every target of the project has in common: language level, warnings, sanitizers.

include(GNUInstallDirs)

set(ZOREDID_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast)

function(zor_target_defaults target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE ${ZOREDID_WARNINGS})
  # What is installed says where a line stands in the project, not where the project stood: assertion lines of the
  # templates in headers name it, too.
  target_compile_options(${target} PRIVATE -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=)
  if(ZOREDID_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(ZOREDID_SANITIZE)
    # Without recovery the first finding ends the process, so that no test can pass over it.
    target_compile_options(${target} PRIVATE -fsanitize=${ZOREDID_SANITIZE} -fno-sanitize-recover=all
                                             -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${ZOREDID_SANITIZE})
    if(ZOREDID_SANITIZE MATCHES "undefined")
      target_compile_options(${target} PRIVATE -fsanitize=float-cast-overflow)
    endif()
  endif()
  if(ZOREDID_FUZZ)
    # Coverage counts edges only. Tracing each comparison as well takes half of the time, and the dictionary finds more.
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link
                                             -fno-sanitize-coverage=trace-cmp,indirect-calls)
  endif()
endfunction()

# A static library of one layer. cmake/ZorEdidInstall.cmake makes the installed libraries of the same objects.
#   HEADERS          the public headers, which are installed; the target all_verify_interface_header_sets compiles each
#                    of them alone
#   PUBLIC_INCLUDES  the folders that callers may include from; each public header stands below one of them
function(zor_add_library target)
  cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;PUBLIC_INCLUDES;LINKS" ${ARGN})
  add_library(${target} STATIC ${ARG_SOURCES})
  zor_target_defaults(${target})
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${ARG_PUBLIC_INCLUDES} FILES ${ARG_HEADERS})
  # For the CMake of a user that is older than file sets (3.23).
  target_include_directories(${target} PUBLIC $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/ZorEdid>)
  target_link_libraries(${target} PUBLIC ${ARG_LINKS})
  # Only what the public headers declare leaves a shared library: each stands between visibility push and pop.
  set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  # Position-independent code of g++ leaves its own functions open to replacement, and so inlines none of them: 8 % of a
  # load. clang inlines them anyway.
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-semantic-interposition>)
  set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON VERIFY_INTERFACE_HEADER_SETS ON)
endfunction()
