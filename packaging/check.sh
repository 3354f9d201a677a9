#!/usr/bin/env bash
# Makes the package and the portable archive of the release build, and looks at both: the platform's checkers, an
# installation into a root of its own and, as root, into this machine, the program started from each and from a portable
# copy, and what is left after the removal. Both stay in build/package.
set -euo pipefail
cd "$(dirname "$0")/.."
packaging/install.sh
packaging/install.sh package-packages.txt
# Names with an accent are in both archives.
export LC_ALL=C.UTF-8
export PATH=$PATH:/usr/sbin:/sbin
tree=$PWD
made=$tree/build/package
work=$(mktemp -d)
chmod 755 "$work"
installed_here=
program=

clean_up() {
  [ -z "$program" ] || kill "$program" 2>/dev/null || true
  [ -z "$installed_here" ] || dpkg -P gestionale >/dev/null || true
  rm -rf "$work"
}
trap clean_up EXIT

told() { echo "packaging: $*"; }
fail() {
  told "$*" >&2
  exit 1
}

# As root the programs are started by another user, as a shop would.
somebody=(setpriv --reuid=65534 --regid=65534 --clear-groups)
as_user=()
[ "$(id -u)" -ne 0 ] || as_user=("${somebody[@]}")

# home <name>: a home folder of that user's own.
home() {
  mkdir -p -m 700 "$work/$1"
  [ ${#as_user[@]} -eq 0 ] || chown 65534:65534 "$work/$1"
  echo "$work/$1"
}

# awaits <text> <log>: until the program started last has written the text, 30 s at most.
awaits() {
  local tick
  for ((tick = 0; tick < 300; tick++)); do
    ! grep -q -- "$1" "$2" || return 0
    kill -0 "$program" 2>/dev/null || break
    sleep 0.1
  done
  cat "$2" >&2
  fail "no '$1' from the program"
}

# ends <status> <what>: the program started last, told to end.
ends() {
  local status=0
  kill -TERM "$program"
  wait "$program" || status=$?
  program=
  [ "$status" -eq "$1" ] || fail "$2 ended with $status"
}

# shows_menu <home> <folder to start in> <program> <transfer folder>: the menu is painted, no box comes before it, nothing
# is complained of, and the files to and from the till would go to that folder.
shows_menu() {
  local log=$work/start.log
  # What the program before has written counts for nothing.
  : >"$log"
  (cd "$2" && exec env -i HOME="$1" XDG_RUNTIME_DIR="$1" PATH="$PATH" LANG=it_IT.UTF-8 \
    QT_QPA_PLATFORM="offscreen:configfile=$tree/demo/display.json" QT_LOGGING_RULES=qt.widgets.painting=true \
    "${as_user[@]}" "$3") >"$log" 2>&1 &
  program=$!
  awaits 'name="start"' "$log"
  [ "$(readlink "/proc/$program/cwd")" = "$4" ] || fail "$3 works in $(readlink "/proc/$program/cwd")"
  ends 143 "$3"
  ! grep -q 'name="MsgBox"' "$log" || fail "$3 starts with a box"
  # The offscreen platform has no window manager to ask.
  ! grep -v -e '^qt.widgets.painting: ' -e '^This plugin does not support ' "$log" >&2 || fail "$3 complains"
  told "$3, started in $2, shows its menu"
}

# answers <home> <program>: the simulated till listens on the loopback.
answers() {
  local log=$work/till.log
  : >"$log"
  (cd "$1" && exec "${as_user[@]}" "$2" --address 127.0.0.77 --dir "$1") >"$log" 2>&1 &
  program=$!
  awaits '^ECRSIM pronto su 127.0.0.77:' "$log"
  ends 0 "$2"
}

# whole <folder> <list of contents>: every file of the list is there as it was brought.
whole() {
  (cd "$1" && sha256sum --check --strict --quiet "$2") || fail "$1 is not what was installed"
  ! ldd "$1/libecrcom.so" "$1/Immagini GRAFICA/bitmap.exe" | grep 'not found' || fail "$1 lacks a library"
  [ -x "$1/Immagini GRAFICA/bitmap.exe" ] || fail "the converter of $1 cannot be started"
}

# --- both made
cmake --preset release >/dev/null
cmake --build --preset release --target package_files
rm -rf "$made"
cpack --config build/release/CPackConfig.cmake -B "$made" >"$work/cpack.log" || { cat "$work/cpack.log"; fail "cpack"; }
rm -rf "$made/_CPack_Packages"
version=$(sed -n 's/^set(CPACK_PACKAGE_VERSION "\(.*\)")$/\1/p' build/release/CPackConfig.cmake)
deb=$made/gestionale_${version}_$(dpkg --print-architecture).deb
portable=$made/gestionale-$version-portatile.tar.gz
[ -s "$deb" ] && [ -s "$portable" ] || fail "no package of version $version in $made"

# --- the package as it lies
dpkg-deb -x "$deb" "$work/content"
content=$work/content/usr
[ "$(dpkg-deb -f "$deb" Package Version | tr '\n' ' ')" = "Package: gestionale Version: $version " ] || fail "name or version"
[ "$(dpkg-parsechangelog -l packaging/debian/changelog -S Version)" = "$version" ] || fail "the changelog's version"
grep -q "<release version=\"$version\"" packaging/gestionale.metainfo.xml || fail "the metainfo's version"
for library in libqt6widgets6 libqt6svg6 libqt6serialport6 libsqlite3-0 zlib1g iputils-ping; do
  dpkg-deb -f "$deb" Depends | grep -q "\b$library\b" || fail "the package does not depend on $library"
done
for package in $(dpkg-deb -f "$deb" Depends | sed 's/([^)]*)//g; s/,//g'); do
  case $package in libc6 | libgcc-s1 | libstdc++6) continue ;; esac
  grep -q "\b$package\b" packaging/LEGGIMI.txt || fail "LEGGIMI.txt does not name $package"
done
lintian_options=(--fail-on error,warning --tag-display-limit 0)
[ "$(id -u)" -ne 0 ] || lintian_options+=(--allow-root)
lintian "${lintian_options[@]}" "$deb"
desktop-file-validate "$content/share/applications/gestionale.desktop"
appstreamcli validate --no-net --strict "$content/share/metainfo/it.gestionale.Gestionale.metainfo.xml"
for page in "$content"/share/man/man1/*.gz; do
  warnings=$(MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
  [ -z "$warnings" ] || fail "$page: $warnings"
done
for option in $("$content/bin/ecrsim" --help | grep -o '^  --[a-z]*'); do
  zcat "$content/share/man/man1/ecrsim.1.gz" | sed 's/\\-/-/g' | grep -q -e "$option\b" || fail "ecrsim.1 does not tell $option"
done
# What a build lays out for the user is what both hold.
ninja -C build/release -t targets all | sed -n 's/^app\/\(.*\): .*/\1/p' | grep -vxE 'gestionale|ecrsim' | sort -u >"$work/built"
[ "$(wc -l <"$work/built")" -gt 100 ] || fail "the build tells of too few files"
missing=$(sed 's/^[0-9a-f]*  //' "$content/share/gestionale/contenuto.sha256" | sort | comm -23 "$work/built" -)
[ -z "$missing" ] || fail "not packaged: $missing"
told "$(basename "$deb") is in order"

# --- installed into a root of its own, and away
root=$work/root
mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates"
touch "$root/var/lib/dpkg/status"
in_root=(dpkg --root="$root" --force-not-root --force-depends --force-script-chrootless --log=/dev/null)
"${in_root[@]}" -i "$deb" >"$work/dpkg.log" 2>&1 || { cat "$work/dpkg.log"; fail "not installed"; }
user=$(home installed)
folder=$user/.local/share/gestionale
shows_menu "$user" "$root/usr/share/gestionale" "$root/usr/bin/gestionale" "$folder"
shows_menu "$user" "$user" "$root/usr/bin/gestionale" "$user"
whole "$folder" "$root/usr/share/gestionale/contenuto.sha256"
answers "$user" "$root/usr/bin/ecrsim"
"${in_root[@]}" -P gestionale >"$work/dpkg.log" 2>&1 || { cat "$work/dpkg.log"; fail "not removed"; }
left=$(find "$root" -mindepth 1 ! -path "$root/var" ! -path "$root/var/lib" ! -path "$root/var/lib/dpkg*")
[ -z "$left" ] || fail "left after the removal: $left"
whole "$folder" contenuto.sha256
told "installed apart and removed: nothing is left but the user's folder"

# --- installed into this machine, and away
if [ "$(id -u)" -eq 0 ] && ! dpkg-query -W gestionale >/dev/null 2>&1; then
  installed_here=yes
  dpkg -i "$deb" >/dev/null
  dpkg -L gestionale >"$work/paths"
  [ -z "$(dpkg -V gestionale)" ] || fail "$(dpkg -V gestionale)"
  entry=/usr/share/applications/gestionale.desktop
  user=$(home machine)
  folder=$user/.local/share/gestionale
  from=$(sed -n 's/^Path=//p' $entry)
  shows_menu "$user" "${from:-$user}" "$(command -v "$(sed -n 's/^Exec=//p' $entry)")" "$folder"
  whole "$folder" /usr/share/gestionale/contenuto.sha256
  man -w gestionale ecrsim >/dev/null || fail "no man page"
  # The superuser may write everywhere, and is kept out of the system's folders all the same.
  user=$work/superuser
  mkdir -m 700 "$user"
  as_user=()
  shows_menu "$user" /usr/share/gestionale /usr/bin/gestionale "$user/.local/share/gestionale"
  as_user=("${somebody[@]}")
  dpkg -P gestionale >/dev/null
  installed_here=
  while read -r path; do
    [ -d "$path" ] && [[ $path != *gestionale* ]] || [ ! -e "$path" ] || fail "left after the removal: $path"
  done <"$work/paths"
  told "installed here and removed: nothing is left"
else
  told "not installed into this machine: that takes root, and no gestionale there"
fi

# --- the portable copy
user=$(home portable)
"${as_user[@]}" tar xzf - -C "$user" <"$portable"
copy=$user/gestionale-$version-portatile
whole "$copy" "$content/share/gestionale/contenuto.sha256"
shows_menu "$user" "$copy" "$copy/gestionale" "$copy"
answers "$user" "$copy/ecrsim"
[ ! -e "$user/.local/share/gestionale" ] || fail "the portable copy keeps a folder elsewhere"
told "$(basename "$portable") is in order"
