# Shared by the scripts: where the project is, how a step is announced, how a failure is named.
# shellcheck shell=bash

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

say() { printf '== %s\n' "$*"; }

# step NAME COMMAND...: says what runs, and names it when it fails.
step() {
  local name=$1
  shift
  say "$name"
  local begin=$SECONDS
  if ! "$@"; then
    printf '== FAILED: %s\n' "$name" >&2
    exit 1
  fi
  say "$name: done in $((SECONDS - begin)) s"
}

# build PRESET FOLDER [CMAKE ARGUMENTS...]: configures and builds one preset in build/FOLDER. What the compiler says is
# shown on failure only. From the environment:
#   build_targets       what to build: all when it is not set
#   ZOREDID_SHARED_DIR  the folder of further tests; none when it is not set
#   ZOREDID_WERROR      ON makes warnings errors; OFF when it is not set, since a newer compiler may warn of new things
build() {
  local preset=$1 folder=build/$2
  shift 2
  mkdir -p build
  # shellcheck disable=SC2086 # one word for each target
  if ! {
    cmake --preset "$preset" -B "$folder" "-DZOREDID_SHARED_DIR=${ZOREDID_SHARED_DIR:-}" \
      "-DZOREDID_WERROR=${ZOREDID_WERROR:-OFF}" "$@" &&
      cmake --build "$folder" --target ${build_targets:-all}
  } > "$folder.log" 2>&1; then
    tail -n 60 "$folder.log" >&2
    return 1
  fi
}

# build_all PRESET FOLDER [CMAKE ARGUMENTS...]: builds all targets, and compiles each public header alone.
build_all() { build_targets="all all_verify_interface_header_sets" build "$@"; }

# run_tests PRESET: runs the tests of build/PRESET, as many at a time as there are processors.
# ctest's table does not say why a test or a part of one was skipped: that is printed after it.
run_tests() {
  local status=0
  ctest --preset "$1" --parallel "$(nproc)" || status=$?
  grep '^skipped:' "build/$1/Testing/Temporary/LastTest.log" || true
  return "$status"
}
