# Installs a build into a folder of its own, builds the project in examples/consumer against the package and runs what it
# builds. Fails unless its output is the expected file. SERVICES tells whether the package has the operating-system layer.
#   cmake -DBUILD=FOLDER -DCONSUMER=FOLDER -DWORK=FOLDER -DIMAGE=FILE -DEXPECTED=FILE -DCOMPILER=FILE
#         -DSERVICES=0|1 [-DFLAGS=...] -P ZorEdidCheckPackage.cmake

file(REMOVE_RECURSE ${WORK})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/package OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} -S ${CONSUMER} -B ${WORK}/build -DCMAKE_PREFIX_PATH=${WORK}/package
                        -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_FLAGS=${FLAGS} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK}/build COMMAND_ERROR_IS_FATAL ANY)

if(SERVICES)
  execute_process(COMMAND ${WORK}/build/os_services_demo OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endif()

set(PROGRAM ${WORK}/build/list_timings)
set(ARGUMENTS ${IMAGE})
set(ACTUAL ${WORK}/list_timings.actual)
include(${CMAKE_CURRENT_LIST_DIR}/ZorEdidCheckOutput.cmake)
