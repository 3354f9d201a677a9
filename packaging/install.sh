#!/usr/bin/env bash
# install.sh [<list>]: installs those packages of packages.txt, or of another list beside it, that are missing. Does
# nothing, and needs no rights, when none is.
set -euo pipefail
cd "$(dirname "$0")"

if ! command -v apt-get >/dev/null; then
  echo "This is no Debian: install the counterparts of packaging/packages.txt by hand." >&2
  exit 1
fi
missing=()
while read -r package; do
  case $package in "" | "#"*) continue ;; esac
  dpkg-query -W -f '${db:Status-Abbrev}' "$package" 2>/dev/null | grep -q '^ii' || missing+=("$package")
done <"${1:-packages.txt}"
[ ${#missing[@]} -gt 0 ] || exit 0

prefix=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "Missing packages: ${missing[*]}. Install them as root." >&2
    exit 1
  fi
  prefix=(sudo)
fi
echo "Installing: ${missing[*]}"
"${prefix[@]}" apt-get update -qq
"${prefix[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
