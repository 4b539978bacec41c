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

# build PRESET FOLDER [CMAKE ARGUMENTS...]: configures and builds one preset in build/FOLDER; what the compiler says is
# shown on failure only. All targets, unless build_targets names some.
build() {
  local preset=$1 folder=build/$2
  shift 2
  mkdir -p build
  [ -z "${ZOREDID_SHARED_DIR:-}" ] || set -- "$@" "-DZOREDID_SHARED_DIR=$ZOREDID_SHARED_DIR"
  if ! { cmake --preset "$preset" -B "$folder" "$@" && cmake --build "$folder" ${build_targets:+--target $build_targets}; } > "$folder.log" 2>&1; then
    tail -n 60 "$folder.log" >&2
    return 1
  fi
}
