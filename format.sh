#!/usr/bin/env bash
# format.sh [--check]: lays out every source as .clang-format tells, or only says which are not.
set -euo pipefail
cd "$(dirname "$0")"
how=(-i)
[ "${1:-}" != --check ] || how=(--dry-run --Werror)
git ls-files -z '*.h' '*.cpp' '*.c' | xargs -0 clang-format "${how[@]}"
