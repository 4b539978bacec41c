# Runs a program without input. Fails unless it exits with 0 and its standard output is the expected file, byte for
# byte. The tests get here by zor_add_output_test.
#   cmake -DPROGRAM=FILE [-DARGUMENTS=A;B] -DEXPECTED=FILE -DACTUAL=FILE -P ZorEdidCheckOutput.cmake
# The output is written to ACTUAL and stays there for a look at what differs.

execute_process(COMMAND ${PROGRAM} ${ARGUMENTS} INPUT_FILE /dev/null OUTPUT_FILE ${ACTUAL} RESULT_VARIABLE status)
if(NOT status STREQUAL "0")
  message(FATAL_ERROR "${PROGRAM} ended with ${status}")
endif()

execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${EXPECTED} ${ACTUAL} RESULT_VARIABLE status)
if(NOT status STREQUAL "0")
  file(READ ${ACTUAL} text)
  message(FATAL_ERROR "the output differs from ${EXPECTED}:\n${text}")
endif()
