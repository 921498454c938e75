#!/usr/bin/env bash
# Checks (default) or applies (--fix) clang-format on the project's own sources.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
mapfile -t files < <(git ls-files --cached --others --exclude-standard -- \
  'plugin/*' 'persist/*' 'osi/*' 'vgui/*' 'tools/*' 'tests/*' 'bench/*' |
  grep -E '\.(cpp|h|hpp|cc)$')
[ ${#files[@]} -gt 0 ] || exit 0
if [ "${1:-}" = "--fix" ]; then
  clang-format -i "${files[@]}"
else
  clang-format --dry-run --Werror "${files[@]}"
fi
