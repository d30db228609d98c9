#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Fails when a target includes a header of a library it does not link.

Usage: check_includes.py MANIFEST SOURCE_DIR

MANIFEST is written by CMake (cmake/NuboLayering.cmake): one line per target with its type,
source folder, sources, links and public links. A header belongs to the library that compiles
the .cpp of the same name, or else to the one library with sources in its folder. Each target's
files are its sources, the headers that belong to it, and any header they include that belongs
to no library (a test's fixture); every quoted include in them must name a header of the target
itself or of a library reachable through its links.
"""

import os
import re
import sys
from collections import defaultdict

INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
LIBRARY_TYPES = {"STATIC_LIBRARY", "SHARED_LIBRARY", "OBJECT_LIBRARY", "INTERFACE_LIBRARY"}


class Target:
    def __init__(self, fields):
        self.name, self.type, self.dir = fields[0], fields[1], fields[2]
        self.sources = [self.absolute(s) for s in split(fields[3])]
        self.links = link_names(fields[4])
        self.public_links = link_names(fields[5])

    def absolute(self, path):
        return os.path.normpath(os.path.join(self.dir, path))


def split(cmake_list):
    return [item for item in cmake_list.split(";") if item]


def link_names(cmake_list):
    # $<LINK_ONLY:x> links without passing x's headers on; other expressions name no header.
    return [item for item in split(cmake_list) if not item.startswith("$<")]


def read_manifest(path):
    targets = {}
    with open(path, encoding="utf-8") as manifest:
        for line in manifest:
            fields = line.rstrip("\n").split("\t")
            if len(fields) == 6:
                target = Target(fields)
                targets[target.name] = target
    return targets


def header_owners(targets):
    """Maps each header beside a library's sources to that library."""
    by_stem, by_folder = {}, defaultdict(set)
    for target in targets.values():
        if target.type not in LIBRARY_TYPES:
            continue
        for source in target.sources:
            by_stem[os.path.splitext(source)[0]] = target.name
            by_folder[os.path.dirname(source)].add(target.name)
    owners = {}
    for folder, names in by_folder.items():
        for entry in sorted(os.listdir(folder)):
            path = os.path.join(folder, entry)
            if not entry.endswith(".h"):
                continue
            owner = by_stem.get(os.path.splitext(path)[0])
            if owner is None and len(names) == 1:
                owner = next(iter(names))
            owners[path] = owner  # None: several libraries share the folder, none is named
    return owners


def reachable(targets, name):
    """The target and every library its links bring, through their public links."""
    seen, todo = {name}, list(targets[name].links or targets[name].public_links)
    while todo:
        link = todo.pop()
        if link in seen or link not in targets:
            continue
        seen.add(link)
        todo.extend(targets[link].public_links)
    return seen


def resolve(include, including_file, roots):
    for folder in [os.path.dirname(including_file)] + roots:
        path = os.path.normpath(os.path.join(folder, include))
        if os.path.isfile(path):
            return path
    return None


def includes_of(path):
    with open(path, encoding="utf-8", errors="replace") as source:
        return INCLUDE.findall(source.read())


def check_target(target, targets, owners, roots, source_dir):
    allowed = reachable(targets, target.name)
    own_headers = [h for h, owner in owners.items() if owner == target.name]
    todo = [f for f in target.sources if f.endswith((".cpp", ".h"))] + own_headers
    done, problems = set(), []
    while todo:
        path = todo.pop()
        if path in done or not os.path.isfile(path):
            continue
        done.add(path)
        for include in includes_of(path):
            header = resolve(include, path, roots)
            if header is None:
                continue  # generated (moc) or outside the project
            if header not in owners:
                todo.append(header)  # a fixture of the target's own, checked as its own
                continue
            owner = owners[header]
            if owner is None:
                problems.append(f'{rel(path, source_dir)}: "{include}" stands in a folder several '
                                'libraries share; give it a .cpp or move it beside its library')
            elif owner == target.name:
                todo.append(header)
            elif owner not in allowed:
                problems.append(f'{rel(path, source_dir)}: includes "{include}" of {owner}, '
                                f'but {target.name} does not link {owner}')
    return done, problems


def rel(path, source_dir):
    return os.path.relpath(path, source_dir)


def main(argv):
    if len(argv) != 3:
        print(__doc__.strip().splitlines()[2], file=sys.stderr)
        return 2
    targets = read_manifest(argv[1])
    source_dir = os.path.abspath(argv[2])
    roots = [os.path.join(source_dir, "src"), os.path.join(source_dir, "tests")]
    owners = header_owners(targets)
    files, problems = set(), []
    for target in sorted(targets.values(), key=lambda t: t.name):
        checked, found = check_target(target, targets, owners, roots, source_dir)
        files |= checked
        problems.extend(found)
    if not files:
        print("check_includes: the manifest names no source file", file=sys.stderr)
        return 2
    for problem in sorted(set(problems)):
        print(problem)
    print(f"check_includes: {len(targets)} targets, {len(files)} files, "
          f"{len(set(problems))} includes without a link")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
