#!/usr/bin/env bash
# Installs the Debian packages that building and testing Tavrin needs, and
# only those that are missing; apt-get runs only when something is missing.
#
#   bash scripts/install-deps.sh              everything (Linux and Windows builds)
#   bash scripts/install-deps.sh --linux-only the Linux build only (no mingw-w64, no Wine)
set -euo pipefail

linux_only=0
for arg in "$@"; do
  case "$arg" in
    --linux-only) linux_only=1 ;;
    -h|--help) sed -n '2,7p' "$0"; exit 0 ;;
    *) echo "install-deps.sh: unknown option $arg" >&2; exit 2 ;;
  esac
done

packages=(
  cmake ninja-build g++ clang libclang-rt-dev
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  libcli11-dev nlohmann-json3-dev libsqlite3-dev
  chromium highlight time
  famfamfam-silk imagemagick fonts-dejavu-core
)
if [[ $linux_only == 0 ]]; then
  packages+=(
    g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix
    binutils-mingw-w64-x86-64 binutils-mingw-w64-i686
    wine wine64
    xvfb xauth
    wixl
  )
fi

missing=()
for package in "${packages[@]}"; do
  if ! dpkg -s "$package" >/dev/null 2>&1; then
    missing+=("$package")
  fi
done

if [[ ${#missing[@]} == 0 ]]; then
  echo "install-deps: all ${#packages[@]} packages present"
  exit 0
fi

echo "install-deps: installing ${missing[*]}"
sudo=()
if [[ $(id -u) != 0 ]]; then
  sudo=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
# One index that cannot be refreshed (a mirror caught mid-sync answers "File
# has unexpected size") must not stop the run: say so and install from the
# lists already on the machine.
if ! "${sudo[@]}" apt-get update -q; then
  echo "install-deps: apt-get update failed; installing from the package lists already present" >&2
fi
"${sudo[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
