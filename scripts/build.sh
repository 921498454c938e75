#!/usr/bin/env bash
# Sets up what is missing on this machine and builds the plug-in bundle,
# the tests, tools and benchmarks into build/ (Release).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${VELORA_BUILD_DIR:-$root/build}

"$root/scripts/bootstrap.sh"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" --parallel "$(nproc)"
echo "build: bundle at $build/VST3/Release/TorvikVelora.vst3"
