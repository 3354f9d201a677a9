#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test.
set -euo pipefail
cd "$(dirname "$0")"
packaging/install.sh
cmake --preset release -DGESTIONALE_TESTS=ON >/dev/null
cmake --build --preset release
exec ctest --preset release "$@"
