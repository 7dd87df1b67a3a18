#!/usr/bin/python3
"""What a screen reader is told of a program: the controls that are shown in its active window, one a line, its parts
divided by tabs: role, name, text. Status 3 when the machine lacks what it takes."""

import sys

try:
    import gi

    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi
except (ImportError, ValueError):
    sys.exit(3)

# What lies inside belongs to the control: cells, entries of a list.
CLOSED = {"table", "tree table", "tree", "list", "list box", "combo box", "spin button", "scroll bar", "popup menu"}


def children(node):
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child:
            yield child


def has(node, state):
    return node.get_state_set().contains(state)


def text_of(node):
    text = node.get_text_iface()
    return Atspi.Text.get_text(text, 0, -1) if text else ""


def walk(node, depth=0):
    if depth and not (has(node, Atspi.StateType.SHOWING) and has(node, Atspi.StateType.VISIBLE)):
        return
    role = node.get_role_name()
    parts = (role, node.get_name() or "", text_of(node))
    print("\t".join(" ".join(part.split()) for part in parts))
    if depth and role in CLOSED:
        return
    for child in children(node):
        walk(child, depth + 1)


def main():
    desktop = Atspi.get_desktop(0)
    for program in children(desktop):
        if program.get_name() != sys.argv[1]:
            continue
        for window in children(program):
            if has(window, Atspi.StateType.ACTIVE):
                walk(window)


main()
