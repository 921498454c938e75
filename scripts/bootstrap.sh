#!/usr/bin/env bash
# Sets up a Debian 12 machine for building and testing Torvik Velora:
# installs the build packages and assembles the VST3 SDK (with VSTGUI) from
# the upstream tarballs of Debian's vst3sdk source package in a cache outside
# the repository. Safe to run again: what is in place is left alone.
set -euo pipefail

SDK_VERSION="3.7.10.14+~4.13.3-4"
SDK_UPSTREAM="3.7.10.14+~4.13.3"
SDK_CACHE="${VELORA_SDK_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/torvik-velora/vst3sdk-${SDK_UPSTREAM}}"

# Component tarball suffix -> directory it provides in the SDK tree, with its SHA-256.
TARBALLS=(
  ":0c9fa7b578f8549d6ce6efeb427e9c7df8ca0e018bea13a523b78bb167663b81"
  "base:b9eb5c1e57ca2ef6b2560dd0e13822dd5a51e437b8f5a6c421b099d621d2bffb"
  "cmake:f4699e910a67e585d7d177b2a48f6aa43706b3f073c8e454615f094484374349"
  "pluginterfaces:fd426c6b26ef93fdfdc8aef7e9b836c1bf43f25b8a1ef4c0642a41fb9250ab8a"
  "public-sdk:ca1f70406b36f0763c799085c67deed5befc69514cc2b9cacb804512e95db335"
  "vstgui4:5a7673c7b22a66086a6749a0c7ff447fcfc4a10d2c2013d58ff1320be4e8456f"
)

PACKAGES=(
  # toolchain and tools
  build-essential cmake pkgconf git clang clang-format libclang-rt-14-dev dpkg-dev
  # VST3 SDK and VSTGUI on Linux
  libcairo2-dev libpango1.0-dev libfreetype-dev libfontconfig-dev libexpat1-dev
  libx11-dev libxcb-cursor-dev libxcb-keysyms1-dev libxcb-util-dev libxcb-xkb-dev
  libxkbcommon-dev libxkbcommon-x11-dev libsqlite3-dev libgtkmm-3.0-dev
  fonts-liberation xvfb xauth xdotool
  # framework and tools
  libcminpack-dev libsndfile1-dev
  # tests, references and benchmarks
  libgtest-dev libgmock-dev libbenchmark-dev libgsl-dev libfftw3-dev
)

log() { printf 'bootstrap: %s\n' "$*"; }

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

install_packages() {
  local missing=()
  for p in "${PACKAGES[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  log "installing ${missing[*]}"
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# The Debian mirror this machine already uses, so that no host name lives here.
debian_mirror() {
  local uri=""
  if [ -f /etc/apt/sources.list.d/debian.sources ]; then
    uri=$(awk '/^URIs:/ {print $2; exit}' /etc/apt/sources.list.d/debian.sources)
  fi
  if [ -z "$uri" ] && [ -f /etc/apt/sources.list ]; then
    uri=$(awk '$1 == "deb" && $0 !~ /security/ { for (i = 2; i <= NF; i++) if ($i ~ /:\/\//) { print $i; exit } }' /etc/apt/sources.list)
  fi
  [ -n "$uri" ] || { echo "bootstrap: no Debian mirror found in /etc/apt" >&2; exit 1; }
  printf '%s\n' "$uri"
}

tarball_name() {
  local suffix=$1
  if [ -z "$suffix" ]; then echo "vst3sdk_${SDK_UPSTREAM}.orig.tar.gz"; else echo "vst3sdk_${SDK_UPSTREAM}.orig-${suffix}.tar.gz"; fi
}

download_tarballs() {
  local dir=$1 aptdir=$1/apt
  mkdir -p "$aptdir/lists/partial" "$aptdir/parts" "$aptdir/cache/archives/partial"
  echo "deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] $(debian_mirror) trixie main" >"$aptdir/sources.list"
  local opts=(
    -o "Dir::Etc::SourceList=$aptdir/sources.list"
    -o "Dir::Etc::SourceParts=$aptdir/parts"
    -o "Dir::State::Lists=$aptdir/lists"
    -o "Dir::Cache=$aptdir/cache"
    -o "APT::Sandbox::User=root"
  )
  log "fetching the vst3sdk ${SDK_VERSION} source tarballs"
  apt-get "${opts[@]}" update -qq
  (cd "$dir" && apt-get "${opts[@]}" source --download-only --tar-only "vst3sdk=${SDK_VERSION}")
}

verify_tarballs() {
  local dir=$1 entry suffix sum name actual
  for entry in "${TARBALLS[@]}"; do
    suffix=${entry%%:*}
    sum=${entry#*:}
    name=$(tarball_name "$suffix")
    [ -f "$dir/$name" ] || { echo "bootstrap: $name was not downloaded" >&2; exit 1; }
    actual=$(sha256sum "$dir/$name" | cut -d' ' -f1)
    if [ "$actual" != "$sum" ]; then
      echo "bootstrap: checksum mismatch for $name: expected $sum, got $actual; refusing to build from it" >&2
      exit 1
    fi
  done
}

# Top-level tarball first, then each component into its directory of the tree.
assemble_tree() {
  local dir=$1 tree=$2 entry suffix name target
  rm -rf "$tree" && mkdir -p "$tree"
  for entry in "${TARBALLS[@]}"; do
    suffix=${entry%%:*}
    name=$(tarball_name "$suffix")
    case "$suffix" in
      "") target=$tree ;;
      public-sdk) target=$tree/public.sdk ;;
      *) target=$tree/$suffix ;;
    esac
    mkdir -p "$target"
    tar -xzf "$dir/$name" -C "$target" --strip-components=1
  done
}

fetch_sdk() {
  if [ -f "$SDK_CACHE/.complete" ]; then
    log "VST3 SDK already in place at $SDK_CACHE"
    return 0
  fi
  local work
  work=$(mktemp -d)
  # shellcheck disable=SC2064 # expand now: the variable is local
  trap "rm -rf '$work'" EXIT
  download_tarballs "$work"
  verify_tarballs "$work"
  mkdir -p "$(dirname "$SDK_CACHE")"
  assemble_tree "$work" "$SDK_CACHE.partial"
  rm -rf "$SDK_CACHE" && mv "$SDK_CACHE.partial" "$SDK_CACHE"
  touch "$SDK_CACHE/.complete"
  log "VST3 SDK assembled at $SDK_CACHE"
}

install_packages
fetch_sdk
