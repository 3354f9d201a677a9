#!/usr/bin/env bash
# lint.sh [<source>...]: what clang-format and clang-tidy say of the sources, all of them without arguments; nothing
# where they have nothing to say.
set -euo pipefail
cd "$(dirname "$0")"
packaging/install.sh
packaging/install.sh lint-packages.txt
./format.sh --check
# Flags of its own: clang-tidy reads no precompiled header of another compiler. What the build generates for the
# sources is made here, without building anything.
cmake --preset lint >/dev/null
generated=$PWD/build/lint/generated
mkdir -p "$generated"
libexec=$(qtpaths6 --query QT_HOST_LIBEXECS)
for form in $(git ls-files '*.ui'); do
  "$libexec/uic" -o "$generated/ui_$(basename "$form" .ui).h" "$form"
done
for source in $(git grep -lE '^#include "[a-z_]+\.moc"' -- '*.cpp'); do
  "$libexec/moc" -o "$generated/$(basename "$source" .cpp).moc" "$source"
done
# What the checks of includes, statements and lists must refuse is compiled by nobody.
[ $# -gt 0 ] || mapfile -t sources < <(git ls-files '*.cpp' ':!tests/includes' ':!tests/statements' ':!tests/listing')
[ $# -eq 0 ] || sources=("$@")
python3 cmake/lint_units.py "$PWD/build/lint" "$generated" "${sources[@]}"
