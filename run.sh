#!/usr/bin/env bash
# Installs what is missing, builds, and does the main job: with a display, the program's window beside a
# simulated till; without one, the demo of the main road, which prints what it did and leaves screenshots.
set -euo pipefail
cd "$(dirname "$0")"
packaging/install.sh
cmake --preset release -DGESTIONALE_TESTS=OFF >/dev/null
cmake --build --preset release --target application demo

app=$PWD/build/release/app
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec build/release/demo/demo --dir "$PWD/build/demo"
fi

mkdir -p build/cassa
"$app/ecrsim" --address 127.0.0.20 --dir "$PWD/build/cassa" &
cassa=$!
trap 'kill "$cassa" 2>/dev/null || true' EXIT
echo "The simulated till answers at 127.0.0.20: type that address before \"Connetti\"."
cd "$app"
./gestionale
