#!/usr/bin/env bash
# Installs what the project is built, run and tested with (Debian 12). Quick when all is there.
set -euo pipefail

packages=(
  # building
  g++ cmake ninja-build ccache pkg-config git
  qt6-base-dev qt6-tools-dev qt6-tools-dev-tools libgl1-mesa-dev qt6-serialport-dev libsqlite3-dev libcurl4-openssl-dev
  # running
  qt6-qpa-plugins qt6-translations-l10n fonts-dejavu-core fonts-dejavu-extra ca-certificates
  # checking and measuring
  clang-format clang-tidy clang libclang-rt-14-dev libbenchmark-dev poppler-utils xvfb
)

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
done
[ "${#missing[@]}" -eq 0 ] && exit 0

sudo=()
[ "$(id -u)" -eq 0 ] || sudo=(sudo)
export DEBIAN_FRONTEND=noninteractive
echo "Installing: ${missing[*]}"
"${sudo[@]}" apt-get update -qq
"${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
