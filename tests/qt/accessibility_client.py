#!/usr/bin/env python3
"""Does what a person does at the running page editor, and reads every object of it after each step,
as a screen reader would. Ends with 1 when the editor shows a window that it should not, or has
something that no words tell.
"""
import re
import sys
import time

import pyatspi
from gi.repository import Atspi

MODIFIERS = {"ctrl": 37}  # codes of the keys themselves
KEYS = {"Down": 0xFF54, "Enter": 0xFF0D, "Escape": 0xFF1B, "F1": 0xFFBE}
CONTROLS = ("list", "table", "push button", "text", "combo box", "check box", "radio button")
NOT_WORDS = re.compile(r"[a-z][A-Z]|_")
NAMES = re.compile(r"HeaderDTC\w*|[\w/.-]+\.\w+|[A-Z0-9_]{3,}")  # of files, fields and labels
faults = set()
objects = 0


def editor():
    desktop = pyatspi.Registry.getDesktop(0)
    for i in range(desktop.childCount):
        application = desktop.getChildAtIndex(i)
        if application and application.name == "headerdtc":
            application.set_cache_mask(Atspi.Cache.NONE)  # what is true now
            return application
    return None


def read_interfaces(node):
    offered = node.get_interfaces()
    if "Text" in offered:
        node.queryText().getText(0, -1)
    if "Value" in offered:
        value = node.queryValue()
        _ = value.minimumValue, value.currentValue, value.maximumValue
    if "Table" in offered:
        table = node.queryTable()
        for row in range(min(table.nRows, 50)):
            for column in range(table.nColumns):
                _ = table.isSelected(row, column), table.getAccessibleAt(row, column)
    if "Action" in offered:
        actions = node.queryAction()
        _ = [(actions.getName(i), actions.getDescription(i)) for i in range(actions.nActions)]
    if "Component" in offered:
        node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)


def judge(role, states, name, description, path):
    shown = states.contains(pyatspi.STATE_SHOWING) and states.contains(pyatspi.STATE_FOCUSABLE)
    if role not in CONTROLS or path[-1:] in (("combo box",), ("text",)):
        return
    if shown and not name and not description:
        faults.add(f"without a name: {' > '.join(path)} > {role}")
    for words in (name, description):
        if NOT_WORDS.search(NAMES.sub("", words)):
            faults.add(f"not in words: {words} ({role})")


def read(node, path=()):
    """All there is to be read of an object and of those in it."""
    global objects
    try:
        name, role, states = node.name, node.getRoleName(), node.getState()
        description = node.description
        _ = node.getAttributes(), node.getRelationSet()
        read_interfaces(node)
        children = [node.getChildAtIndex(i) for i in range(node.childCount)]
    except Exception:  # it has gone meanwhile; whether the editor has too is seen in the end
        return
    objects += 1
    judge(role, states, name, description, path)
    for child in children:
        if child:
            read(child, path + (role,))


def find(role, words, within=None):
    for _ in range(20):
        found = pyatspi.findDescendant(
            within or editor(), lambda node: node and node.getRoleName() == role
            and (node.name.strip().startswith(words) or node.description == words)
            and (role == "page tab" or node.getState().contains(pyatspi.STATE_SHOWING)))
        if found:
            return found
        time.sleep(0.5)
    sys.exit(f"there is no {role} '{words}'")


def key(stroke):
    *held, last = stroke.split("+")
    for modifier in held:
        pyatspi.Registry.generateKeyboardEvent(MODIFIERS[modifier], None, pyatspi.KEY_PRESS)
    code = KEYS.get(last) or ord(last)
    pyatspi.Registry.generateKeyboardEvent(code, None, pyatspi.KEY_SYM)
    for modifier in held:
        pyatspi.Registry.generateKeyboardEvent(MODIFIERS[modifier], None, pyatspi.KEY_RELEASE)


def click(node):
    box = None
    while box != (now := node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)):
        box = now  # what was just laid out may still move
        time.sleep(0.5)
    pyatspi.Registry.generateMouseEvent(box.x + min(20, box.width // 2), box.y + box.height // 2, pyatspi.MOUSE_B1C)


def turn(tab):
    find("page tab", tab).queryAction().doAction(0)


def open_script():
    click(find("table cell", "...", find("table", "ZEKO selection criteria")))


def mark_a_field():
    names = find("list", "Translate names of ZEKO fields")
    click(find("list item", "108 - MARGIN12", names))


def choose_another_provider():
    click(find("combo box", "Select a dataprovider"))
    for stroke in ("Down", "Enter"):
        time.sleep(0.5)
        key(stroke)


def turns(*tabs):
    return [(f"turn to {tab}", lambda tab=tab: turn(tab), []) for tab in tabs]


# What is done, and the windows that stand beside the main one then.
STEPS = [
    *turns("EAI Link", "ZEKO Link", "ZEKO"),
    ("open the script", open_script, ["Specify script"]),
    ("leave it", lambda: key("Escape"), []),
    *turns("EAI", "I18N"),
    ("mark a field", mark_a_field, ["Question"]),
    ("agree", lambda: key("Enter"), ["Specify translation"]),
    ("cancel", lambda: key("Escape"), []),
    *turns("General"),
    ("choose another provider", choose_another_provider, []),
    *turns("ZEKO", "EAI", "I18N", "ZEKO Link"),
    ("new page", lambda: key("ctrl+n"), []),
    ("guide", lambda: key("F1"), ["HeaderDTC guide"]),
]


# Reading takes a while.
LOOKED_AT = ("turn to EAI Link", "choose another provider", "new page")


def windows_beside():
    names = [window.name for window in editor() if window]
    return [name for name in names if not re.search(r"\.asp\*? – HeaderDTC$", name)]


def drive():
    while not (editor() and editor().childCount):
        time.sleep(0.1)
    before = None
    for what, act, expected in STEPS:
        act()
        time.sleep(0.5)
        until = time.monotonic() + 30  # on a busy machine
        while (beside := windows_beside()) != expected and time.monotonic() < until:
            time.sleep(0.2)
        if beside != expected:
            faults.add(f"{what}: there are {beside}, not {expected}")
        if what in LOOKED_AT:
            read(editor())
        for window in editor():
            if window and window.name in expected:
                read(window)
        if what == "turn to ZEKO":
            chosen = find("list", "Selected ZEKO fields").name
            if before and chosen != "Selected ZEKO fields, 0 items":
                faults.add(f"another provider, and still {chosen}")
            before = chosen
    print(f"{objects} objects read, {len(faults)} faults")
    for fault in sorted(faults):
        print(fault)
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    drive()
