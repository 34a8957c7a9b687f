#!/usr/bin/env bash
# Installs the Debian packages the build needs; does nothing when they are there.
set -euo pipefail

packages=(
  build-essential cmake pkg-config ccache
  libicu-dev libpcre2-dev zlib1g-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  qt6-base-dev libgl-dev
  # Qt's own texts (dialog buttons, file dialogs) in the user's language.
  qt6-translations-l10n
  # The faces the memo and the forms ask for: a fixed-pitch family, and the
  # metric twins of the usual Windows faces.
  fonts-dejavu-core fonts-liberation
  # setpriv, with which tests run a command as a user bound by file permissions.
  util-linux
  clang libclang-rt-14-dev
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
