# Sourced by the scripts: works from the project's root and builds quietly.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
export CTEST_PARALLEL_LEVEL=${CTEST_PARALLEL_LEVEL:-$(nproc)}

# say TEXT: one line of progress
say() { printf '%s\n' "$*"; }

# build PRESET TARGET [CMAKE OPTION...]: what the compiler says appears only where it fails
build() {
  local preset=$1 target=$2 folder log
  shift 2
  folder=build-$preset
  [[ $preset == release ]] && folder=build
  mkdir -p "$folder"
  log=$folder/build.log
  if ! { cmake --preset "$preset" "$@" && cmake --build --preset "$preset" --target "$target"; } \
    >"$log" 2>&1 </dev/null; then
    { grep -E -A 12 'error:|^FAILED|^CMake Error|undefined reference' "$log" || tail -n 5 "$log"; } |
      head -n 60 >&2 || true
    say "The build failed; all of its output is in $log" >&2
    return 1
  fi
}

# run_tests PRESET [CTEST OPTION...]: failures with their output, ctest's closing lines and the counts
run_tests() {
  local preset=$1 log=build-$1/test.log status=0
  shift
  ctest --preset "$preset" --output-on-failure --no-tests=error "$@" </dev/null | tee "$log" |
    grep -Ev '^ +Start +[0-9]+: |^ *[0-9]+/[0-9]+ Test +#[0-9]+: .* Passed |^Test project |^$' ||
    status=$?
  sed -nE 's/.*, ([0-9]+) tests failed out of ([0-9]+)$/\2 tests, \1 failed/p' "$log"
  return "$status"
}

# server_folder: a new folder for servers whose data need not outlive them: in memory where 2 GB are
# free there, because making a company's tables waits for the disk at every one
server_folder() {
  local free
  free=$(df --output=avail -k /dev/shm 2>/dev/null | tail -n 1)
  if ((${free:-0} > 2000000)); then
    mktemp -d -p /dev/shm kt7-servers-XXXXXX
  else
    mktemp -d
  fi
}
