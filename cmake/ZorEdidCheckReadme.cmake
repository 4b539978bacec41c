# Fails unless the first block of C++ or C of a document is the given source file.
#   cmake -DDOCUMENT=FILE -DSOURCE=FILE -P ZorEdidCheckReadme.cmake

file(READ ${DOCUMENT} text)
file(READ ${SOURCE} source)
cmake_path(GET SOURCE EXTENSION LAST_ONLY language)
string(REPLACE "." "```" opening "${language}\n")
string(FIND "${text}" "${opening}" begin)
if(begin EQUAL -1)
  message(FATAL_ERROR "${DOCUMENT} has no block of its language")
endif()
string(LENGTH "${opening}" length)
math(EXPR begin "${begin} + ${length}")
string(SUBSTRING "${text}" ${begin} -1 text)
string(FIND "${text}" "```" length)
string(SUBSTRING "${text}" 0 ${length} quoted)
if(NOT quoted STREQUAL source)
  message(FATAL_ERROR "${DOCUMENT} does not quote ${SOURCE}:\n${quoted}")
endif()
