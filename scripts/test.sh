#!/usr/bin/env bash
# The one test command: sets up what is missing, builds, checks formatting and
# the direction of the framework's includes, and runs the whole suite through
# CTest: the main build, then the sanitizer builds (AddressSanitizer with UBSan
# and the bounded fuzz runs; ThreadSanitizer), which compile the framework and,
# of the SDK, the plug-in and the tools, only what the tests that run under
# them need.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${VELORA_BUILD_DIR:-$root/build}
jobs=$(nproc)

"$root/scripts/build.sh"
echo "test: checking formatting"
"$root/scripts/format.sh"
"$root/scripts/check_layers.sh"

passed=0 failed=0 status=0
# run_ctest DIR: runs one tree's tests and adds its counts to the totals.
run_ctest() {
  local log
  log=$(mktemp)
  (cd "$1" && ctest --output-on-failure --parallel "$jobs") 2>&1 | tee "$log" || status=1
  local line
  line=$(grep -E '^[0-9]+% tests passed, [0-9]+ tests failed out of [0-9]+' "$log" | tail -n 1 || true)
  if [ -n "$line" ]; then
    local total fail
    fail=$(sed -E 's/.* ([0-9]+) tests failed out of ([0-9]+).*/\1/' <<<"$line")
    total=$(sed -E 's/.* tests failed out of ([0-9]+).*/\1/' <<<"$line")
    passed=$((passed + total - fail))
    failed=$((failed + fail))
  fi
  rm -f "$log"
}

run_ctest "$build"
for sanitizer in address thread; do
  tree="$build-$sanitizer"
  echo "test: $sanitizer sanitizer build in $tree"
  CC=clang CXX=clang++ cmake -S "$root" -B "$tree" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DVELORA_SANITIZE="$sanitizer" >/dev/null
  cmake --build "$tree" --parallel "$jobs"
  run_ctest "$tree"
done

echo
"$root/scripts/test_ratio.sh"
echo "total: $passed passed, $failed failed"
exit $status
