#!/usr/bin/env bash
# Builds everything a release ships, into build/packages/:
#   Tavrin-<version>.msi            the Windows installer (both add-ins, the tool, the help)
#   Tavrin-<version>-win32.zip      the 32-bit build: Tavrin.dll, tavrin.exe
#   Tavrin-<version>-win64.zip      the 64-bit build
#   tavrin_<version>_<arch>.deb     the command-line tool for Debian
# Tests are not run here; scripts/test.sh does that.
set -euo pipefail

cd "$(dirname "$0")/.."
bash scripts/install-deps.sh

step() {
  echo
  echo "==> $*"
  "$@"
}

out=$PWD/build/packages
mkdir -p "$out"
# The 32-bit DLL first: the installer carries it. cpack packs what the
# install rules name (cmake/Packaging.cmake); only those targets are built,
# not the tests that `--target package` would build first.
declare -A targets=([win32]="Tavrin tavrin" [win64]="Tavrin tavrin installer" [dev]="tavrin")
for preset in win32 win64 dev; do
  step cmake --preset "$preset"
  # shellcheck disable=SC2086  # the targets are words
  step cmake --build --preset "$preset" --target ${targets[$preset]}
  step cpack --config build/"$preset"/CPackConfig.cmake -B "$out"
done
cp build/win64/Tavrin-*.msi "$out"/
rm -rf "$out"/_CPack_Packages

echo
echo "==> packages in build/packages:"
ls -l "$out"
