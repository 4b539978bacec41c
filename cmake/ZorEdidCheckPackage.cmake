# Installs a build into a folder of its own, builds the project in examples/consumer against the package and runs what it
# builds, then the project in cmake/PackageCheck. Fails unless the output is the expected file. SERVICES tells whether the
# package has the operating-system layer.
#   cmake -DBUILD=FOLDER -DCONSUMER=FOLDER -DWORK=FOLDER -DIMAGE=FILE -DEXPECTED=FILE -DCOMPILER=FILE
#         -DSERVICES=0|1 -DTYPE=Release|Debug|... [-DFLAGS=...] -P ZorEdidCheckPackage.cmake

function(build_against_package source folder)
  execute_process(COMMAND ${CMAKE_COMMAND} -S ${source} -B ${folder} -DCMAKE_PREFIX_PATH=${WORK}/package
                          -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_FLAGS=${FLAGS} -DSERVICES=${SERVICES} --no-warn-unused-cli
                  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_COMMAND} --build ${folder} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${WORK})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/package OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

# No path of this machine travels with the package, save in what debuggers read.
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

build_against_package(${CONSUMER} ${WORK}/build)
build_against_package(${CMAKE_CURRENT_LIST_DIR}/PackageCheck ${WORK}/check)
if(SERVICES)
  execute_process(COMMAND ${WORK}/build/os_services_demo OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endif()

set(PROGRAM ${WORK}/build/list_timings)
set(ARGUMENTS ${IMAGE})
set(ACTUAL ${WORK}/list_timings.actual)
include(${CMAKE_CURRENT_LIST_DIR}/ZorEdidCheckOutput.cmake)
