#!/usr/bin/env bash
# Installs those packages of packages.txt that are missing. Does nothing, and needs no rights, when none is.
set -euo pipefail
cd "$(dirname "$0")"

if ! command -v apt-get >/dev/null; then
  echo "This is no Debian: install the counterparts of packaging/packages.txt by hand." >&2
  exit 1
fi
mancanti=()
while read -r pacchetto; do
  case $pacchetto in "" | "#"*) continue ;; esac
  dpkg-query -W -f '${db:Status-Abbrev}' "$pacchetto" 2>/dev/null | grep -q '^ii' || mancanti+=("$pacchetto")
done <packages.txt
[ ${#mancanti[@]} -gt 0 ] || exit 0

come=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "Missing packages: ${mancanti[*]}. Install them as root." >&2
    exit 1
  fi
  come=(sudo)
fi
echo "Installing: ${mancanti[*]}"
"${come[@]}" apt-get update -qq
"${come[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${mancanti[@]}" >/dev/null
