#!/usr/bin/env python3
"""lint_units.py <build folder> <generated headers> <source>...: clang-tidy over sources put together in units.

clang-tidy spends most of its time on the system's headers, which nearly every source reads: some thirty sources that
are compiled alike and read in one go take little longer than one alone. A source that does not stand beside the others
(a name of its unnamed namespace that another has too) goes into the next unit. The sources stay where they are: a unit
includes them, so that every line told is theirs.

Prints what clang-tidy says; ends with 1 where it says anything or a source was not read, else with 0.
"""
import concurrent.futures
import json
import os
import re
import shlex
import subprocess
import sys

LARGEST_UNIT = 30
# The static analyzer follows paths through an included source where the including file's name holds this.
UNIT_NAME = 'UnifiedSource'
# Functions that another of the unit calls are analyzed by themselves all the same.
ANALYZER = ['--extra-arg=-Xclang', '--extra-arg=-analyzer-inlining-mode=all']
# Two checks see no more than a unit's own lines.
ALIAS = re.compile(r'^\s*namespace (\w+) = ', re.M)
USING = re.compile(r'^\s*using (?:\w+::)+(\w+);', re.M)
INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])(.*)[>"]', re.M)
OWN_FILES = r'(/(src|devices)/.*\.h|\.cpp)$'
ANY_DIAGNOSTIC = re.compile(r'^([^\s:]+\.(?:cpp|h)):\d+:\d+: (?:fatal )?error:', re.M)


class Unit:
    """Sources of one target, and how they are read: each in a namespace of its own or as they are."""

    def __init__(self, name, flags, sources, apart):
        self.name, self.flags, self.sources, self.apart = name, flags, sources, apart


def flags_of(command):
    """How a source is read: its includes, its definitions, and the warnings and the language. What it comes to, the
    sanitizers' code and the like make no difference to a reader."""
    includes, definitions, rest = [], [], []
    words = iter(shlex.split(command)[1:])
    for word in words:
        if word == '-o':
            next(words)
        elif word == '-isystem':
            includes.append(('-isystem', next(words)))
        elif word.startswith('-I'):
            includes.append((word,))
        elif word.startswith('-D'):
            definitions.append(word)
        elif word.startswith(('-W', '-std', '-fPIC')):
            rest.append(word)
    return includes, definitions, tuple(rest)


def definitions_clash(definitions):
    """Whether a name is defined in two ways."""
    return len({word.partition('=')[0] for word in definitions}) < len(definitions)


def of_tests(source):
    return os.path.relpath(source).startswith('tests' + os.sep)


def includes_of(source):
    """The include lines of a source, as they can stand in a file of any other folder."""
    with open(source, encoding='utf-8') as text:
        for quote, name in INCLUDE.findall(text.read()):
            beside = os.path.join(os.path.dirname(source), name)
            if quote == '"' and os.path.exists(beside):
                name = beside
            yield f'#include <{name}>' if quote == '<' else f'#include "{name}"'


def text_of(unit):
    """A unit's text: what all of it includes first, so that no header is read inside a source's namespace."""
    lines = []
    if unit.apart:
        lines += dict.fromkeys(line for source in unit.sources for line in includes_of(source))
    for number, source in enumerate(unit.sources):
        line = f'#include "{source}"  // NOLINT(bugprone-suspicious-include)'
        lines += [f'namespace unit_{number} {{', line, '}'] if unit.apart else [line]
    return '\n'.join(lines) + '\n'


def refused(unit, path):
    """Compiles a unit; returns the sources that do not stand in it, and what the compiler said."""
    run = subprocess.run(['clang++', '-fsyntax-only', '-w', '-ferror-limit=0', *unit.flags, path],
                         capture_output=True, text=True, check=False)
    if run.returncode == 0:
        return [], ''
    named = set(ANY_DIAGNOSTIC.findall(run.stderr))
    out = [source for source in unit.sources if source in named]
    # Where no source is named the headers clash: the second half tries its luck alone.
    return out or unit.sources[len(unit.sources) // 2:], run.stderr


def unused_names(source):
    """What clang-tidy says of unused aliases and using-declarations of a file that is read alone."""
    with open(source, encoding='utf-8') as text:
        content = text.read()
    said = ''
    for names in (ALIAS, USING):
        for found in names.finditer(content):
            if len(re.findall(rf'\b{found[1]}\b', content)) < 2:
                said += f"{source}:{content.count(chr(10), 0, found.start(1)) + 1}: '{found[1]}' is unused\n"
    return said


def read(unit, folder):
    """Reads a unit whole; returns what is said of it, how many sources it read, and the unit of those left."""
    path = os.path.join(folder, unit.name + '.cpp')
    left = []
    said = ''
    while unit.sources:
        with open(path, 'w', encoding='utf-8') as text:
            text.write(text_of(unit))
        out, said = refused(unit, path)
        if not out:
            break
        # The first source came before all others: nothing of them can stand in its way.
        if len(unit.sources) == 1:
            if not unit.apart:
                rest = Unit(unit.name + '_', unit.flags, left, False) if left else None
                return said or f'clang++ took no {unit.sources[0]}', 0, rest
            left += unit.sources
            unit.sources = []
            break
        out = [source for source in out if source != unit.sources[0]] or unit.sources[1:]
        left += out
        unit.sources = [source for source in unit.sources if source not in out]
    rest = None
    if left:
        # What came out as a whole stands in no namespace of its own.
        apart = unit.apart and bool(unit.sources)
        rest = Unit(unit.name + '_', unit.flags, left, apart)
    if not unit.sources:
        return '', 0, rest
    own_list = ['--config-file=tests/.clang-tidy'] if of_tests(unit.sources[0]) else []
    run = subprocess.run(['clang-tidy', '--quiet', '--header-filter=' + OWN_FILES, *ANALYZER, *own_list, path, '--',
                          *unit.flags], capture_output=True, text=True, check=False)
    said = run.stdout
    if run.returncode and not said.strip():
        said = f'clang-tidy ended with {run.returncode}: {path}\n{run.stderr}'
    said += ''.join(unused_names(source) for source in unit.sources)
    print(f'{unit.name}: {len(unit.sources)} read', file=sys.stderr, flush=True)
    return said if said.strip() else '', len(unit.sources), rest


class Group:
    """Sources that can be read alike: the includes and the definitions of all of them."""

    def __init__(self, rest, apart, tests):
        self.rest, self.apart, self.tests = rest, apart, tests
        self.includes, self.definitions, self.sources = {}, {}, []


def place(source, flags, groups):
    """Puts a source into the first group that can take it, else into a new one."""
    includes, definitions, rest = flags
    with open(source, encoding='utf-8') as text:
        apart = source.endswith('_test.cpp') or 'int main(' in text.read()
    kind = (rest, apart, of_tests(source))
    for group in groups:
        if (group.rest, group.apart, group.tests) == kind and not definitions_clash({*group.definitions, *definitions}):
            break
    else:
        group = Group(*kind)
        groups.append(group)
    group.includes.update(dict.fromkeys(includes))
    group.definitions.update(dict.fromkeys(definitions))
    group.sources.append(source)


def main():
    build, generated, *sources = sys.argv[1:]
    with open(os.path.join(build, 'compile_commands.json'), encoding='utf-8') as commands:
        flags = {entry['file']: flags_of(entry['command']) for entry in json.load(commands)}
    wanted = list(dict.fromkeys(os.path.abspath(name) for name in sources))
    groups = []
    for source in wanted:
        if source not in flags:
            sys.exit(f'{source}: no target compiles it')
        place(source, flags[source], groups)
    folder = os.path.join(build, 'units')
    os.makedirs(folder, exist_ok=True)
    units = []
    for group in groups:
        flag = [*(word for include in group.includes for word in include), *group.definitions, *group.rest,
                '-I' + generated]
        for first in range(0, len(group.sources), LARGEST_UNIT):
            part = group.sources[first:first + LARGEST_UNIT]
            units.append(Unit(f'{UNIT_NAME}{len(units):03}', flag, part, group.apart and len(part) > 1))
    clean = True
    done = 0
    with concurrent.futures.ThreadPoolExecutor(max_workers=os.cpu_count()) as readers:
        running = {readers.submit(read, unit, folder) for unit in units}
        while running:
            ended, running = concurrent.futures.wait(running, return_when=concurrent.futures.FIRST_COMPLETED)
            for one in ended:
                said, count, rest = one.result()
                done += count
                if said:
                    clean = False
                    print(said, flush=True)
                if rest:
                    running.add(readers.submit(read, rest, folder))
    if done < len(wanted):
        print(f'{done} of {len(wanted)} sources read')
    sys.exit(0 if clean and done == len(wanted) else 1)


if __name__ == '__main__':
    main()
