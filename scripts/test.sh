#!/usr/bin/env bash
# The one test command: sets up what is missing, checks formatting, builds
# and runs the whole suite through CTest.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${VELORA_BUILD_DIR:-$root/build}

"$root/scripts/build.sh"
echo "test: checking formatting"
"$root/scripts/format.sh"
cd "$build"
ctest --output-on-failure --parallel "$(nproc)"
