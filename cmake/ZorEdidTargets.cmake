# What every target of the project has in common: language level, warnings, sanitizers.

set(ZOREDID_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
                     $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast>)

function(zor_target_defaults target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  target_compile_options(${target} PRIVATE ${ZOREDID_WARNINGS})
  # Assertion lines, those of the templates in headers too, name a file by its path in the project, without the path of
  # the project itself.
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

# The objects of one layer.
#   HEADERS          the public headers, which are installed; the target all_verify_interface_header_sets compiles each
#                    of them alone
#   PUBLIC_INCLUDES  the folders that callers may include from; each public header is in or below one of them
#   LINKS            the layers below, whose headers it includes
function(zor_add_library target)
  cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;PUBLIC_INCLUDES;LINKS" ${ARGN})
  add_library(${target} OBJECT ${ARG_SOURCES})
  zor_target_defaults(${target})
  target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${ARG_PUBLIC_INCLUDES} FILES ${ARG_HEADERS})
  target_link_libraries(${target} PUBLIC ${ARG_LINKS})
  # A shared library exports only what the public headers declare between visibility push and pop.
  set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  # Position-independent code of g++ leaves its own functions open to replacement, and so inlines none of them: 8 % of a
  # load. clang inlines them anyway.
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-semantic-interposition>)
  set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON
                                             VERIFY_INTERFACE_HEADER_SETS ${PROJECT_IS_TOP_LEVEL})
endfunction()

# A library for users, made of the objects of layers: static or, with BUILD_SHARED_LIBS, shared.
#   NAME           of the file, without "lib"
#   LAYERS         the layers, whose public headers it takes as well
#   LINKS          what a program has to link, too
#   PRIVATE_LINKS  what the library itself needs
# Programs of the project link TARGET_internals. In a static build that is the library. A shared library hides what they
# use of private headers, so a shared build makes an archive for them, too.
function(zor_combine target)
  cmake_parse_arguments(ARG "" "NAME" "LAYERS;LINKS;PRIVATE_LINKS" ${ARGN})
  add_library(${target})
  if(BUILD_SHARED_LIBS)
    add_library(${target}_internals STATIC EXCLUDE_FROM_ALL)
    set_target_properties(${target}_internals PROPERTIES LINKER_LANGUAGE CXX)
    target_link_libraries(${target}_internals PUBLIC ${ARG_PRIVATE_LINKS})
  else()
    add_library(${target}_internals ALIAS ${target})
  endif()
  zor_target_defaults(${target})
  foreach(layer IN LISTS ARG_LAYERS)
    get_target_property(headers ${layer} HEADER_SET)
    get_target_property(folders ${layer} HEADER_DIRS)
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:${layer}>
                             PUBLIC FILE_SET HEADERS BASE_DIRS ${folders} FILES ${headers})
    if(BUILD_SHARED_LIBS)
      target_sources(${target}_internals PRIVATE $<TARGET_OBJECTS:${layer}>)
      target_include_directories(${target}_internals PUBLIC ${folders})
    endif()
  endforeach()
  target_link_libraries(${target} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_PRIVATE_LINKS})
  if(NOT ZOREDID_SANITIZE) # the sanitizers' runtime is in the program
    target_link_options(${target} PRIVATE -Wl,--no-undefined)
  endif()
  # Versions that differ in the second number are not exchangeable, and so the soname has both.
  set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX OUTPUT_NAME ${ARG_NAME} VERSION ${PROJECT_VERSION}
                                             SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  if(EMSCRIPTEN) # It lies within a build for the host, where nobody who looks for the library must find this one.
    set_target_properties(${target} PROPERTIES OUTPUT_NAME ${ARG_NAME}-wasm)
  endif()
endfunction()
