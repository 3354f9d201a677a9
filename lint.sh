#!/usr/bin/env bash
# lint.sh [<source>...]: what clang-format and clang-tidy say of the sources, all of them without arguments; nothing
# where they have nothing to say.
set -euo pipefail
cd "$(dirname "$0")"
packaging/install.sh
packaging/install.sh lint-packages.txt
./format.sh --check
# A build of its own: clang-tidy reads no precompiled header of another compiler, and needs the forms' headers.
cmake --preset lint >/dev/null
mapfile -t forms < <(ninja -C build/lint -t targets all | sed -n 's/^\([a-z_]*_autogen\): phony$/\1/p')
ninja -C build/lint --quiet "${forms[@]}"
[ $# -gt 0 ] || mapfile -t sources < <(git ls-files '*.cpp')
[ $# -eq 0 ] || sources=("$@")
printf '%s\0' "${sources[@]}" | xargs -0 -n 4 -P "$(nproc)" clang-tidy -p build/lint --quiet
