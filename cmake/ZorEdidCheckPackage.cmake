# Installs a build into a folder of its own and uses what is installed there: the command, and the library through
# find_package and through pkg-config. Fails unless the programs of examples/consumer say what they should.
#   cmake -DBUILD=FOLDER -DCONSUMER=FOLDER -DWORK=FOLDER -DIMAGE=FILE -DEXPECTED=FILE -DCOMPILER=FILE -DVERSION=A.B.C
#         -DSERVICES=0|1 -DTOOL=0|1 -DTYPE=Release|Debug|... [-DDEBIAN=1 -DLAUNCHER=FILE] [-DPYTHON=FILE]
#         [-DWASM=FILE] -P ZorEdidCheckPackage.cmake
#   SERVICES  whether the package has the operating-system layer
#   TOOL      whether it has the command
#   WASM      the library for the browser app, where the build has that
#   DEBIAN    makes the Debian packages by scripts/package, with a shared library, and takes what they unpack to

get_filename_component(project ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})

if(DEBIAN)
  set(package ${WORK}/root/usr)
  set(TOOL 1)
  set(TYPE Release)
  # Not optimised, which takes a fifth of the time.
  set(ENV{DEB_BUILD_OPTIONS} noopt)
  foreach(run IN ITEMS first second)
    execute_process(COMMAND ${project}/scripts/package ${WORK}/${run} -DCMAKE_CXX_COMPILER=${COMPILER}
                            -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} -DZOREDID_OS_SERVICES=${SERVICES}
                            -DZOREDID_WASM=${WASM}
                    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    file(GLOB debian "${WORK}/${run}/*.deb")
    foreach(file IN LISTS debian)
      file(SHA256 ${file} hash)
      list(APPEND ${run} ${hash})
    endforeach()
  endforeach()
  if(NOT first STREQUAL second)
    message(FATAL_ERROR "packages of the same sources differ: ${first}, ${second}")
  endif()
  foreach(file IN LISTS debian)
    execute_process(COMMAND dpkg-deb -x ${file} ${WORK}/root COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
  find_program(lintian lintian)
  if(lintian)
    execute_process(COMMAND ${lintian} --allow-root --fail-on error ${debian}
                    RESULT_VARIABLE status OUTPUT_VARIABLE text ERROR_VARIABLE text)
    if(NOT status STREQUAL "0")
      message(FATAL_ERROR "lintian has found errors:\n${text}")
    endif()
  endif()
else()
  set(package ${WORK}/package)
  execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${package}
                  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endif()

# The Python package, where it was built.
if(EXISTS ${package}/lib/python3/dist-packages/zoredid)
  file(GLOB libraries "${package}/lib/*/libzoredid.so" "${package}/lib/libzoredid.so")
  list(TRANSFORM libraries REPLACE "/libzoredid.so$" "")
  execute_process(COMMAND ${CMAKE_COMMAND} -E env PYTHONPATH=${package}/lib/python3/dist-packages
                          LD_LIBRARY_PATH=${libraries} PYTHONDONTWRITEBYTECODE=1
                          ${PYTHON} -c "import zoredid; print(zoredid.load('${IMAGE}').facts.identity.name)"
                  OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
  if(NOT text STREQUAL "ASUS VE276\n")
    message(FATAL_ERROR "the Python package says: ${text}")
  endif()
endif()

# No path of this machine travels with the package, except in what debuggers read.
file(GLOB_RECURSE installed "${package}/*.cmake" "${package}/*.pc")
if(TYPE STREQUAL "Release")
  file(GLOB_RECURSE binaries "${package}/bin/*" "${package}/*.a" "${package}/*.so")
endif()
foreach(file IN LISTS installed binaries)
  file(STRINGS ${file} lines)
  string(FIND "${lines}" "${project}/" source_path)
  string(REGEX MATCH "/[^;\"]*libpci\\.(so|a)" libpci_path "${lines}")
  if(NOT source_path EQUAL -1 OR libpci_path)
    message(FATAL_ERROR "${file} names a path of this machine: ${libpci_path}")
  endif()
endforeach()

# Installed headers include installed headers only, and what they declare can be called in a shared library. The
# target all_verify_interface_header_sets checks in the build tree that each compiles alone.
set(headers ${package}/include/ZorEdid)
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
  file(STRINGS ${file} declarations REGEX "^(class|struct|[a-z].*\\))")
  file(STRINGS ${file} visible REGEX "^#pragma GCC visibility (push\\(default\\)|pop)")
  list(LENGTH visible count)
  if(declarations AND NOT count EQUAL 2)
    message(FATAL_ERROR "${file} is not between #pragma GCC visibility push(default) and pop")
  endif()
endforeach()

# A shared library has its soname and no symbols of private classes.
if(DEBIAN)
  file(GLOB_RECURSE library "${package}/libzoredid.so")
  string(REGEX REPLACE "\\.[0-9]+$" "" soname libzoredid.so.${VERSION})
  execute_process(COMMAND readelf -d ${library} OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
  if(NOT text MATCHES "SONAME.*\\[${soname}\\]")
    message(FATAL_ERROR "${library} is not ${soname}:\n${text}")
  endif()
  execute_process(COMMAND nm -DC --defined-only ${library} OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
  if(NOT text MATCHES " zoredid_facts_read@@ZOREDID_[0-9]+\\.[0-9]+\n" OR text MATCHES " zoredid_[a-z0-9_]+\n")
    message(FATAL_ERROR "${library} has names for C without a version:\n${text}")
  endif()
  if(NOT text MATCHES " CEdid::" OR text MATCHES " (CCea861|CHdmi1x|CTextLine|CMonitorReport)")
    message(FATAL_ERROR "${library} has other symbols than those of the public headers:\n${text}")
  endif()
endif()

# The command, its page and its completion.
if(TOOL)
  set(command ${package}/bin/zoredid)
  if(NOT EXISTS ${command})
    message(FATAL_ERROR "the package has no ${command}")
  endif()
  execute_process(COMMAND ${command} report ${IMAGE} OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
  if(text STREQUAL "")
    message(FATAL_ERROR "${command} report ${IMAGE} says nothing")
  endif()
  if(WASM)
    execute_process(COMMAND ${CMAKE_COMMAND} -E env --unset=DISPLAY --unset=WAYLAND_DISPLAY ${command} page --app
                    OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
    if(NOT text STREQUAL "${package}/share/zoredid/zoredid.html\n")
      message(FATAL_ERROR "the browser app is not installed: ${text}")
    endif()
  endif()
  find_program(help2man help2man)
  if(help2man)
    if(DEBIAN)
      execute_process(COMMAND gzip -d ${package}/share/man/man1/zoredid.1.gz COMMAND_ERROR_IS_FATAL ANY)
    endif()
    file(READ ${package}/share/man/man1/zoredid.1 text)
    foreach(section IN ITEMS "EXIT STATUS" "ZOREDID REPORT" EXAMPLES "SEE ALSO")
      if(NOT text MATCHES "\n\\.SH \"?${section}\"?\n")
        message(FATAL_ERROR "the man page has no section ${section}:\n${text}")
      endif()
    endforeach()
  endif()
  set(ENV{PATH} "${package}/bin:$ENV{PATH}") # check-completion asks the command by its name
  execute_process(COMMAND ${project}/ExternalDeviceLayer/Utilities/ZorEdidTool/Package/check-completion
                          ${package}/share/bash-completion/completions/zoredid
                  COMMAND_ERROR_IS_FATAL ANY)
endif()

function(configure_against_package source folder)
  execute_process(COMMAND ${CMAKE_COMMAND} -S ${source} -B ${folder} -DCMAKE_PREFIX_PATH=${package}
                          -DCMAKE_CXX_COMPILER=${COMPILER} -DSERVICES=${SERVICES} --no-warn-unused-cli
                  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# The consumer through find_package.
configure_against_package(${CMAKE_CURRENT_LIST_DIR}/PackageCheck ${WORK}/check)
configure_against_package(${CONSUMER} ${WORK}/build)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK}/build OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
if(SERVICES)
  execute_process(COMMAND ${WORK}/build/os_services_demo OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endif()
set(ARGUMENTS ${IMAGE})
set(PROGRAM ${WORK}/build/list_timings)
set(ACTUAL ${WORK}/list_timings.actual)
include(${CMAKE_CURRENT_LIST_DIR}/ZorEdidCheckOutput.cmake)

# And through pkg-config.
find_program(pkg_config pkg-config)
if(pkg_config)
  file(GLOB_RECURSE file "${package}/zoredid.pc")
  get_filename_component(folder ${file} DIRECTORY)
  set(ENV{PKG_CONFIG_PATH} ${folder})
  get_filename_component(folder ${folder} DIRECTORY)
  set(ENV{LD_LIBRARY_PATH} ${folder})
  execute_process(COMMAND ${pkg_config} --cflags --libs "zoredid = ${VERSION}" OUTPUT_VARIABLE flags
                  COMMAND_ERROR_IS_FATAL ANY)
  set(c_flags ${flags})
  separate_arguments(flags UNIX_COMMAND "list_timings.cpp ${flags}")
  set(PROGRAM ${WORK}/list_timings)
  execute_process(COMMAND ${COMPILER} -std=c++20 ${flags} -o ${PROGRAM} WORKING_DIRECTORY ${CONSUMER}
                  COMMAND_ERROR_IS_FATAL ANY)
  include(${CMAKE_CURRENT_LIST_DIR}/ZorEdidCheckOutput.cmake)

  # In C, without a compiler of C++.
  find_program(c_compiler cc)
  if(c_compiler)
    separate_arguments(flags UNIX_COMMAND "compositor.c ${c_flags}")
    set(PROGRAM ${WORK}/compositor)
    execute_process(COMMAND ${c_compiler} ${flags} -o ${PROGRAM} WORKING_DIRECTORY ${CONSUMER}
                    COMMAND_ERROR_IS_FATAL ANY)
    set(EXPECTED ${project}/examples/compositor.expected)
    set(ACTUAL ${WORK}/compositor.actual)
    include(${CMAKE_CURRENT_LIST_DIR}/ZorEdidCheckOutput.cmake)
  endif()
endif()
