#!/usr/bin/env bash
# The quickest way to hear the plug-in: sets up what is missing on this
# machine, builds the bundle and velora-render, and renders the built-in demo
# (a pulsed tone and band-limited noise swept from left to right) into
# demo.wav in the current folder, printing the render's report.
#
# usage: scripts/demo.sh [OUTPUT]        (default: demo.wav)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${VELORA_BUILD_DIR:-$root/build}
output=${1:-demo.wav}

"$root/scripts/bootstrap.sh"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" --target velora-render --parallel "$(nproc)"
echo
"$build/bin/Release/velora-render" --out "$output"
echo
echo "demo: listen to $output (headphones make the width easiest to hear)"
