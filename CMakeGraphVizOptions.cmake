# SPDX-License-Identifier: GPL-3.0-or-later
# `cmake --graphviz=<file> <build>`: the project's libraries and their links only (the picture
# in docs/architecture.md).
set(GRAPHVIZ_EXECUTABLES FALSE)
set(GRAPHVIZ_EXTERNAL_LIBS FALSE)
set(GRAPHVIZ_INTERFACE_LIBS FALSE)
set(GRAPHVIZ_GENERATE_PER_TARGET FALSE)
set(GRAPHVIZ_GENERATE_DEPENDERS FALSE)
