#!/usr/bin/env bash
# Runs the SDK's validator on the bundle and compares the set of failing
# validator tests, with their error lines, to the expected set. The plug-in's
# self-test must also have reported both of its "Correct" messages.
#
# usage: validator_check.sh VALIDATOR BUNDLE EXPECTED_FAILURES_FILE [VALIDATOR OPTIONS...]
set -u
validator=$1 bundle=$2 expected=$3
shift 3
log=$(mktemp)
trap 'rm -f "$log"' EXIT

"$validator" "$@" "$bundle" >"$log" 2>&1
status=$?

# Each failing test: its "[name]" header and the ERROR lines before its verdict.
actual=$(awk '
  /^\[.*\]$/ && !/^\[(Succeeded|XXXXXXX Failed)\]$/ { name = $0; errors = ""; next }
  /^ERROR:/ { errors = errors "\n" $0; next }
  /^\[XXXXXXX Failed\]$/ { print name errors }
' "$log")

ok=1
if [ "$actual" != "$(cat "$expected")" ]; then
  echo "validator failures differ from the expected set"
  echo "--- expected"; cat "$expected"
  echo "--- actual"; printf '%s\n' "$actual"
  ok=0
fi
for message in "Correct IEditController" "Correct IComponent"; do
  grep -q "Info:  $message" "$log" || { echo "self-test did not report: $message"; ok=0; }
done
summary=$(grep -m1 '^Result:' "$log")
echo "validator: $summary (exit $status)"
expected_count=$(grep -c '^\[' "$expected")
grep -q "^Result: [0-9]* tests passed, $expected_count tests failed" "$log" || { echo "unexpected failure count"; ok=0; }
[ $ok -eq 1 ] || { cat "$log"; exit 1; }
