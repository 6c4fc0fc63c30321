#!/usr/bin/env bash
# Installs with apt whatever the build, the tests and the start command need and is missing.
set -euo pipefail
packages=(cmake ninja-build g++ make g++-mingw-w64-x86-64-posix mingw-w64-tools wine64 xvfb xauth imagemagick
          googletest x11-utils)
# make fuzz also needs clang with its sanitizer and libFuzzer runtimes.
[ "${1:-}" = fuzz ] && packages=(cmake ninja-build clang libclang-rt-14-dev)
missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0
echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -ne 0 ] && sudo=sudo
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
