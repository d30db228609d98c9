#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Fails when the link graph breaks the layering or docs/architecture.md no longer shows it.

Usage: check_links.py MANIFEST SOURCE_DIR [--print]

MANIFEST is the one check_includes.py reads. The checks:
  - a core library (any but the window libraries, *_ui, and the composition root) reaches
    neither Qt Widgets nor Qt Gui through its links, except the few in GUI_CORE_LIBRARIES;
  - the library table and the graph in docs/architecture.md list every library of the project
    with its layer and the project libraries it links, exactly as CMake declares them;
  - every test is named tst_<Class> after a class of src/ with its capitals, or after one of
    the few units that are no class (TEST_UNITS); a class whose tests fill two files names the
    second tst_<Class><Aspect> (tst_Form1View).
With --print it prints the table and the graph as they should read, for pasting into the docs.
"""

import os
import re
import sys

from check_includes import read_manifest

LIBRARY_TYPES = {"STATIC_LIBRARY", "SHARED_LIBRARY", "OBJECT_LIBRARY"}
GUI_MODULES = {"Qt6::Gui", "Qt6::Widgets", "Qt6::PrintSupport", "Qt6::OpenGL",
               "Qt6::OpenGLWidgets", "Qt6::Svg", "Qt6::SvgWidgets"}
# Core libraries allowed to draw with Qt Gui (never Widgets), and why.
GUI_CORE_LIBRARIES = {
    "nubo_print_paint": "draws covers for the cover window and nubo-cli alike",
    "nubo_print_cli": "nubo-cli's cover, drawn through nubo_print_paint",
}
# Tests of a whole rather than a class: a file format, the installed program.
TEST_UNITS = {"WorkbookFile", "DatabaseFile", "InstalledProgram"}
DOC = os.path.join("docs", "architecture.md")
TABLE_HEADER = "| layer | library | links (as CMake declares them) |"
ROW = re.compile(r"^\|\s*(\d+)\s*\|\s*`([\w]+)`\s*\|(.*)\|\s*$")
EDGE = re.compile(r"^\s*(\w+)\s*-->\s*(\w+)\s*$")
SUBGRAPH = re.compile(r'^\s*subgraph\s+L(\d+)\b')
NODE = re.compile(r"^\s*(nubo_\w+)\s*$")


def project_libraries(targets):
    """Each library of the project with the project libraries it links, directly."""
    names = {n for n, t in targets.items() if t.type in LIBRARY_TYPES}
    return {n: sorted(l for l in targets[n].links if l in names) for n in sorted(names)}


def layers(graph):
    """0 for a library linking none of the project's, else one above its highest link."""
    result = {}

    def layer(name, path=()):
        if name in path:
            raise ValueError("the link graph has a cycle: " + " -> ".join(path + (name,)))
        if name not in result:
            result[name] = 1 + max((layer(l, path + (name,)) for l in graph[name]), default=-1)
        return result[name]

    for name in graph:
        layer(name)
    return result


def is_core(name):
    return not name.endswith("_ui") and name != "nubo_composition"


def gui_problems(targets, graph):
    problems = []
    for name in graph:
        if not is_core(name):
            continue
        seen, todo, qt = set(), [name], set()
        while todo:
            current = todo.pop()
            if current in seen:
                continue
            seen.add(current)
            qt |= {l for l in targets[current].links if l in GUI_MODULES}
            todo.extend(graph.get(current, []))
        allowed = {"Qt6::Gui"} if name in GUI_CORE_LIBRARIES else set()
        for module in sorted(qt - allowed):
            problems.append(f"{name} is a core library but reaches {module} through its links")
    return problems


def test_name_problems(targets, source_dir):
    classes = {os.path.splitext(f)[0] for _, _, files in os.walk(os.path.join(source_dir, "src"))
               for f in files if f.endswith(".h")}
    known = classes | TEST_UNITS

    def named_well(unit):
        return unit in known or any(unit.startswith(c) and unit[len(c):][:1].isupper()
                                    for c in classes)

    return [f"{name}: a test is named tst_<Class> after the class it tests, with its capitals"
            for name, target in sorted(targets.items())
            if target.type == "EXECUTABLE" and name.startswith("tst_") and not named_well(name[4:])]


def expected_table(graph, layer_of):
    lines = [TABLE_HEADER, "|---|---|---|"]
    for name in sorted(graph, key=lambda n: (layer_of[n], n)):
        links = ", ".join(f"`{l}`" for l in graph[name]) or "Qt and system libraries only"
        lines.append(f"| {layer_of[name]} | `{name}` | {links} |")
    return lines


def expected_graph(graph, layer_of):
    lines = ["flowchart BT"]
    for layer in range(max(layer_of.values()) + 1):
        lines += [f'    subgraph L{layer}["layer {layer}"]', "        direction LR"]
        lines += [f"        {n}" for n in sorted(graph) if layer_of[n] == layer]
        lines.append("    end")
    lines += [f"    {n} --> {l}" for n in sorted(graph) for l in graph[n]]
    return lines


def read_doc(path):
    """The table's rows and the graph's layers and arrows, as the document has them."""
    table, nodes, edges = {}, {}, set()
    in_table = in_graph = False
    layer = None
    with open(path, encoding="utf-8") as doc:
        for line in doc:
            line = line.rstrip("\n")
            in_table = line == TABLE_HEADER or (in_table and line.startswith("|"))
            if line.startswith("```mermaid"):
                in_graph = True
            elif line.startswith("```"):
                in_graph = False
            if in_table and (row := ROW.match(line)):
                links = sorted(re.findall(r"`(\w+)`", row.group(3)))
                table[row.group(2)] = (int(row.group(1)), links)
            elif in_graph and (m := SUBGRAPH.match(line)):
                layer = int(m.group(1))
            elif in_graph and (m := EDGE.match(line)):
                edges.add((m.group(1), m.group(2)))
            elif in_graph and (m := NODE.match(line)):
                nodes[m.group(1)] = layer
    return table, nodes, edges


def doc_problems(doc_path, graph, layer_of):
    table, nodes, edges = read_doc(doc_path)
    problems = []
    for name in sorted(set(graph) | set(table)):
        if name not in graph:
            problems.append(f"{DOC}: the table lists {name}, which CMake does not build")
        elif name not in table:
            problems.append(f"{DOC}: the table lacks {name} (layer {layer_of[name]})")
        elif table[name] != (layer_of[name], graph[name]):
            problems.append(f"{DOC}: the table gives {name} layer {table[name][0]} and links "
                            f"{table[name][1]}; CMake: layer {layer_of[name]}, links {graph[name]}")
        if name in graph and nodes.get(name) != layer_of[name]:
            problems.append(f"{DOC}: the graph puts {name} in layer {nodes.get(name)}, "
                            f"not {layer_of[name]}")
    arrows = {(n, l) for n in graph for l in graph[n]}
    for a, b in sorted(arrows ^ edges):
        missing = (a, b) in arrows
        problems.append(f"{DOC}: the graph {'lacks' if missing else 'has'} the arrow {a} --> {b}"
                        + ("" if missing else ", which CMake does not declare"))
    return problems


def main(argv):
    if len(argv) not in (3, 4):
        print(__doc__.strip().splitlines()[2], file=sys.stderr)
        return 2
    targets = read_manifest(argv[1])
    graph = project_libraries(targets)
    try:
        layer_of = layers(graph)
    except ValueError as cycle:
        print(cycle)
        return 1
    if argv[3:] == ["--print"]:
        print("\n".join(expected_table(graph, layer_of) + [""] + expected_graph(graph, layer_of)))
        return 0
    problems = gui_problems(targets, graph)
    problems += doc_problems(os.path.join(argv[2], DOC), graph, layer_of)
    problems += test_name_problems(targets, argv[2])
    for problem in problems:
        print(problem)
    print(f"check_links: {len(graph)} libraries, {len(problems)} problems"
          + ("; print the docs' table and graph with --print" if problems else ""))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
