#!/usr/bin/env bash
# docs/take_pictures.sh
# Takes the pictures of the users' manual anew: builds the demo, plays it without a display against a simulated till on
# the loopback, and leaves what the pages show in docs/manuale/immagini, under the names that the pages use. The week is
# always the same one, and so is the folder, which one of the pictures shows.
set -euo pipefail
cd "$(dirname "$0")/.."
folder=/tmp/negozio
if [ -e "$folder" ]; then
  echo "$folder is there already: move it away" >&2
  exit 1
fi
cmake --preset release >/dev/null
cmake --build --preset release --target demo
mkdir "$folder"
trap 'rm -rf "$folder"' EXIT
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM QT_SCALE_FACTOR
LC_ALL=it_IT.UTF-8 build/release/demo/demo --dir "$folder" --address 127.0.0.20 --settimana 2026-03-09 \
  --manuale docs/manuale/immagini
