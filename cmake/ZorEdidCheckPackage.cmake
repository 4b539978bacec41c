# Installs a build into a folder of its own and looks at what is installed. Builds the project in examples/consumer
# against the package and runs its programs. Configures the project in cmake/PackageCheck. Fails unless the output of
# list_timings is the expected file.
#   cmake -DBUILD=FOLDER -DCONSUMER=FOLDER -DWORK=FOLDER -DIMAGE=FILE -DEXPECTED=FILE -DCOMPILER=FILE
#         -DSERVICES=0|1 -DTYPE=Release|Debug|... [-DFLAGS=...] -P ZorEdidCheckPackage.cmake
# SERVICES says whether the package has the operating-system layer.

function(configure_against_package source folder)
  execute_process(COMMAND ${CMAKE_COMMAND} -S ${source} -B ${folder} -DCMAKE_PREFIX_PATH=${WORK}/package
                          -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_FLAGS=${FLAGS} -DSERVICES=${SERVICES}
                          --no-warn-unused-cli
                  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${WORK})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/package
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

# No path of this machine travels with the package, except in what debuggers read.
get_filename_component(project ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)
file(GLOB_RECURSE installed "${WORK}/package/*.cmake")
if(TYPE STREQUAL "Release")
  file(GLOB_RECURSE archives "${WORK}/package/*.a")
endif()
foreach(file IN LISTS installed archives)
  file(STRINGS ${file} lines)
  string(FIND "${lines}" "${project}/" source_path)
  string(REGEX MATCH "/[^;\"]*libpci\\.(so|a)" libpci_path "${lines}")
  if(NOT source_path EQUAL -1 OR libpci_path)
    message(FATAL_ERROR "${file} names a path of this machine: ${libpci_path}")
  endif()
endforeach()

# Installed headers include installed headers only. That each stands alone, all_verify_interface_header_sets shows in
# the build tree, where private headers are in reach.
set(headers ${WORK}/package/include/ZorEdid)
file(GLOB_RECURSE installed "${headers}/*.h")
if(NOT installed)
  message(FATAL_ERROR "the package has no headers in ${headers}")
endif()
foreach(file IN LISTS installed)
  get_filename_component(folder ${file} DIRECTORY)
  file(STRINGS ${file} lines REGEX "^#include \"")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "^#include \"([^\"]*)\".*" "\\1" name "${line}")
    if(NOT EXISTS ${headers}/${name} AND NOT EXISTS ${folder}/${name})
      message(FATAL_ERROR "${file} includes ${name}, which is not installed")
    endif()
  endforeach()
endforeach()

configure_against_package(${CMAKE_CURRENT_LIST_DIR}/PackageCheck ${WORK}/check)
configure_against_package(${CONSUMER} ${WORK}/build)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK}/build COMMAND_ERROR_IS_FATAL ANY)
if(SERVICES)
  execute_process(COMMAND ${WORK}/build/os_services_demo OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endif()

set(PROGRAM ${WORK}/build/list_timings)
set(ARGUMENTS ${IMAGE})
set(ACTUAL ${WORK}/list_timings.actual)
include(${CMAKE_CURRENT_LIST_DIR}/ZorEdidCheckOutput.cmake)
