# Fails unless a block of C++ or C of a document is the given source file, or the whole body of a function in it.
#   cmake -DDOCUMENT=FILE -DSOURCE=FILE -P ZorEdidCheckReadme.cmake

file(READ ${DOCUMENT} text)
file(READ ${SOURCE} source)
cmake_path(GET SOURCE EXTENSION LAST_ONLY language)
string(REPLACE "." "```" opening "${language}\n")
# Without the indentation of a body.
string(REGEX REPLACE "\n    " "\n" bodies "${source}")
while(TRUE)
  string(FIND "${text}" "${opening}" begin)
  if(begin EQUAL -1)
    message(FATAL_ERROR "${DOCUMENT} does not quote ${SOURCE}")
  endif()
  string(LENGTH "${opening}" length)
  math(EXPR begin "${begin} + ${length}")
  string(SUBSTRING "${text}" ${begin} -1 text)
  string(FIND "${text}" "```" length)
  string(SUBSTRING "${text}" 0 ${length} quoted)
  string(FIND "${bodies}" "\n{\n${quoted}}\n" body)
  if(quoted STREQUAL source OR NOT body EQUAL -1)
    return()
  endif()
endwhile()
