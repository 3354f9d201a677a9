#!/usr/bin/env bash
# docs/list_tests.sh [--check] [TREE]
# Writes TREE/docs/tests.md: every screen and every public procedure of the program with the tests that name it.
# A procedure that no test names is listed with the tests of what calls it: a scene that tests share, or a source.
# --check writes nothing and tells what is out of date. Either fails where a screen or a procedure has no test at all.
set -euo pipefail
check=no
if [ "${1:-}" = --check ]; then
  check=yes
  shift
fi
cd "${1:-$(dirname "$0")/..}"
export LC_ALL=C

# Machinery bears no names of the trade.
own=$(find src -mindepth 2 -maxdepth 2 ! -path 'src/platform/*' ! -path 'src/controls/*' | sort)
headers=$(grep '\.h$' <<<"$own")
sources=$(grep '\.cpp$' <<<"$own" || true)
# Trees within the tests are what checks must refuse.
files=$(find tests \( -name '*.h' -o -name '*.cpp' \) ! -path 'tests/*/tests/*' ! -path 'tests/*/src/*' | sort)
tests=$(grep '_test\.cpp$' <<<"$files" || true)
scenes=$(grep -v '_test\.cpp$' <<<"$files" || true)
made=$(mktemp)
trap 'rm -f "$made"' EXIT

# What the lists are about: kind, folder, name, header.
subjects=$(
  for header in $headers; do
    folder=$(basename "$(dirname "$header")")
    sed -nE 's/^class ((Form_|MDIForm_|frm)[A-Za-z0-9_]*|start)( .*:|[ ]*\{).*/screen \1/p
             /^(template|static_assert|using|return|class|struct|enum|#|namespace|extern)/d
             /^inline constexpr/d
             s/^[A-Za-z_][A-Za-z0-9_:<>,\* &]*[ &*]([A-Za-z_][A-Za-z0-9_]*)\(.*/procedure \1/p' "$header" |
      sed "s|\$| $folder $header|"
  done
  # The four screens of the test bench are one class with four tables.
  grep -oh 'u"Form_Test[A-Za-z]*"' src/auxcmd/*.cpp 2>/dev/null |
    sed -E 's|u"(.*)"|screen \1 auxcmd src/auxcmd/test_bench.h|' || true
)

# shellcheck disable=SC2086  # lists of names without blanks
echo "$subjects" | sort -u | awk '
  # The subjects that a line names, by number. A name that is a plain word of the language as well has to be called, and
  # by itself; that one, and one that two headers declare, counts where the header is included.
  function named(line, list,    n, word, plain, before, i, count, which) {
    sub(/\/\/.*/, "", line)
    while (match(line, /[A-Za-z_][A-Za-z0-9_]*/)) {
      word = substr(line, RSTART, RLENGTH)
      before = substr(line, RSTART - 1, 1)
      line = substr(line, RSTART + RLENGTH)
      if (!(word in wanted)) continue
      count = split(wanted[word], which, " ")
      plain = word !~ /[A-Z]/ && kinds[which[1]] == "procedure"
      if (plain && (line !~ /^[(<]/ || before == "." || before == ">")) continue
      for (i = 1; i <= count; ++i)
        if ((!plain && count == 1) || (current, stem(headerOf[which[i]])) in includes) list[++n] = which[i]
    }
    return n
  }
  # "src/sales/reception.h": "sales/reception"
  function stem(path) {
    sub(/^[a-z]*\//, "", path)
    sub(/\.[a-z]+$/, "", path)
    return path
  }
  function base(path) {
    sub(/.*\//, "", path)
    return path
  }
  # The test file of a source: in the folder of the same name, or the only one of its name.
  function testFileOf(source) {
    if (source in testOf) return testOf[source] "\n"
    return bearers[base(source)] == 1 ? onlyTest[base(source)] "\n" : ""
  }
  # Suites of a file that are told: each once, in the order of the file.
  function add(name, file, suite) {
    if ((name, file, suite) in told) return
    told[name, file, suite] = 1
    if (!((name, file) in suites)) filesOf[name] = filesOf[name] file "\n"
    suites[name, file] = suites[name, file] (suites[name, file] == "" ? "" : ", ") suite
  }
  function addFile(name, file,    all, n, i) {
    n = split(suitesIn[file], all, "\n")
    for (i = 1; i < n; ++i) add(name, file, all[i])
  }
  function flush(    n, i, list) {
    n = split(outside, list, "\n")
    for (i = 1; i < n; ++i) addFile(list[i], current)
    outside = ""
  }
  # The one of the same name first.
  function testsOf(name,    list, n, i, one, own, text) {
    n = unfold(filesOf[name], list)
    for (i = 1; i <= n; ++i) {
      one = "`" substr(list[i], 7) "`: " suites[name, list[i]]
      if (base(list[i]) == names[name] "_test.cpp") own = one
      else text = text (text == "" ? "" : "; ") one
    }
    return own (own != "" && text != "" ? "; " : "") text
  }
  function unfold(text, list) { return split(text, list, "\n") - 1 }
  # Tests of a caller: of its name, of the tests that share it, or of the other procedures beside it.
  function testsThrough(caller,    n, i, m, k, list, above, text, done) {
    text = testFileOf(caller) (caller in scenes ? sharedBy[caller] : "")
    if (text == "") {
      n = unfold(declared[caller], list)
      for (i = 1; i <= n; ++i) {
        text = text filesOf[list[i]]
        m = unfold(callers[list[i]], above)
        for (k = 1; k <= m; ++k) text = text testFileOf(above[k]) (above[k] in scenes ? sharedBy[above[k]] : "")
      }
    }
    n = unfold(text, list)
    text = ""
    for (i = 1; i <= n; ++i) {
      if (list[i] in done) continue
      done[list[i]] = 1
      text = text (text == "" ? "" : ", ") "`" substr(list[i], 7) "`"
    }
    return text
  }
  # A procedure that a header alone uses has the tests of that one.
  function through(name,    list, n, i, text, found) {
    n = unfold(callers[name] == "" ? stem(headerOf[name]) "\n" : callers[name], list)
    for (i = 1; i <= n; ++i) {
      found = testsThrough(list[i])
      if (found == "" || (name, list[i]) in passed) continue
      passed[name, list[i]] = 1
      text = text (text == "" ? "" : "; ") "through `" base(list[i]) "`: " found
    }
    return text
  }
  function table(kind, folder, title,    i, name, tests, text) {
    for (i = 1; i <= count; ++i) {
      if (kinds[i] != kind || (folder != "" && folders[i] != folder)) continue
      name = names[i]
      tests = testsOf(i)
      if (tests == "" && kind == "procedure") tests = through(i)
      if (tests == "") {
        print kind " without a test: " name " (" headerOf[i] ")" > "/dev/stderr"
        failed = 1
      }
      text = text "| `" name "` | " tests " |\n"
    }
    if (text == "") return
    print "\n" title "\n\n| " kind " | tests |\n|---|---|"
    printf "%s", text
  }

  FILENAME == "-" {
    kinds[++count] = $1; names[count] = $2; folders[count] = $3; headerOf[count] = $4
    wanted[$2] = wanted[$2] " " count
    if ($1 == "procedure") declared[stem($4)] = declared[stem($4)] count "\n"
    if (!($3 in seen)) { seen[$3] = 1; order[++areas] = $3 }
    next
  }
  FNR == 1 {
    flush()
    current = FILENAME
    suite = ""
    if (current ~ /_test\.cpp$/) {
      source = substr(stem(current), 1, length(stem(current)) - 5)
      testOf[source] = current
      onlyTest[base(source)] = current
      ++bearers[base(source)]
    } else if (current ~ /^tests/) scenes[stem(current)] = 1
  }
  /^#include "/ {
    split($0, list, "\"")
    included = stem("x/" list[2])
    includes[current, included] = 1
    if (current ~ /_test\.cpp$/) sharedBy[included] = sharedBy[included] current "\n"
    next
  }
  current !~ /_test\.cpp$/ {
    n = named($0, list)
    for (i = 1; i <= n; ++i)
      if (!((list[i], current) in calls)) {
        calls[list[i], current] = 1
        callers[list[i]] = callers[list[i]] stem(current) "\n"
      }
    next
  }
  /^TEST(_F|_P)?\(/ {
    suite = $0
    sub(/^[A-Z_]*\(/, "", suite)
    sub(/,.*/, "", suite)
    if (!((current, suite) in known)) {
      known[current, suite] = 1
      suitesIn[current] = suitesIn[current] suite "\n"
    }
  }
  {
    n = named($0, list)
    for (i = 1; i <= n; ++i) {
      if (suite != "") add(list[i], current, suite)
      else outside = outside list[i] "\n"
    }
  }
  /^}/ { suite = "" }

  END {
    flush()
    print "# Screens, procedures and their tests"
    print ""
    print "Written by `docs/list_tests.sh`, and checked by CTest: what is listed is what stands in the sources. Behind each file"
    print "of `tests/` are the suites that name the screen or the procedure; one that is named in what a file shares stands with"
    print "all of its suites. A procedure that no test names is listed with the tests of what calls it."
    table("screen", "", "## Screens")
    for (a = 1; a <= areas; ++a) table("procedure", order[a], "## Procedures of `src/" order[a] "`")
    exit failed
  }
' - $sources $scenes $tests >"$made"

if [ $check = no ]; then
  cp "$made" docs/tests.md
elif ! cmp -s "$made" docs/tests.md; then
  diff docs/tests.md "$made" | head -40 || true
  echo "docs/tests.md is out of date: run docs/list_tests.sh"
  exit 1
fi
