#!/usr/bin/env bash
# Prints how many lines of tests there are for each line of product code: the
# test sources under tests/ (C++, scripts, CMake; not fuzz seeds) over the
# lines of the product's C++ in plugin/, persist/, osi/, vgui/ and tools/, as a whole and
# for each test folder against the product folders it covers.
set -euo pipefail
cd "$(dirname "$0")/.."

# count PATTERN PATH...: lines of the files under PATHs whose names match.
count() {
  local pattern=$1
  shift
  git ls-files --cached --others --exclude-standard -- "$@" |
    { grep -E "$pattern" || true; } | { grep -vE '/(seeds|fuzz_seeds)/' || true; } |
    tr '\n' '\0' | xargs -0 -r cat | wc -l
}
test_lines() { count '(\.(cpp|h|sh|cmake)|CMakeLists\.txt)$' "$@"; }
product_lines() { count '\.(cpp|h)$' "$@"; }

# Test folder -> the product folders whose code it tests.
areas=(
  "plugin support:plugin"
  "persist:persist"
  "containers runtime:osi/base osi/osd osi/containers osi/runtime"
  "pool:osi/pool"
  "services:osi/services"
  "numerics:osi/numerics"
  "text:osi/text"
  "render:tools/velora_render"
  "spectrum:tools/spectrum"
  "scope:tools/velora_scope tools/frame_host"
  "vgui:vgui"
)

ratio() { awk -v t="$1" -v p="$2" 'BEGIN { if (p > 0) printf "%.2f", t / p; else printf "-" }'; }

for entry in "${areas[@]}"; do
  tests=() product=()
  for t in ${entry%%:*}; do tests+=("tests/$t"); done
  for p in ${entry#*:}; do product+=("$p"); done
  t=$(test_lines "${tests[@]}")
  p=$(product_lines "${product[@]}")
  [ "$t" -gt 0 ] || [ "$p" -gt 0 ] || continue
  printf '  %-10s %6d / %6d = %s\n' "${entry%%:*}" "$t" "$p" "$(ratio "$t" "$p")"
done
t=$(test_lines tests)
p=$(product_lines plugin persist osi vgui tools)
printf 'test ratio: %d test lines / %d product lines = %s\n' "$t" "$p" "$(ratio "$t" "$p")"
