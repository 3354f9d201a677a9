#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test.
set -euo pipefail
cd "$(dirname "$0")"
packaging/install.sh
cmake --preset release -DGESTIONALE_TESTS=ON >/dev/null
cmake --build --preset release
# The tests make some thousands of archives: in memory where there is plenty, so that none of them waits for a disk.
plenty=$((4 * 1024 * 1024))
free_memory=$(awk '/^MemAvailable:/ {print $2}' /proc/meminfo)
free_folder=$(df --output=avail -k /dev/shm 2>/dev/null | tail -n 1)
if [ -z "${TMPDIR:-}" ] && [ -w /dev/shm ] && [ "$free_memory" -gt "$plenty" ] && [ "${free_folder:-0}" -gt "$plenty" ]; then
  TMPDIR=$(mktemp -d /dev/shm/gestionale.XXXXXX)
  # Some tests go on as a user who may do nothing: the way into the folder is open, as that of any other is.
  chmod 755 "$TMPDIR"
  export TMPDIR
  trap 'rm -rf "$TMPDIR"' EXIT
fi
ctest --preset release "$@"
