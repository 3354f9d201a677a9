#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test.
set -euo pipefail
cd "$(dirname "$0")"
packaging/installa.sh
cmake --preset release -DGESTIONALE_PROVE=ON >/dev/null
cmake --build --preset release
exec ctest --preset release "$@"
