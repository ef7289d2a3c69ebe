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

KEYS = {"Down": 0xFF54, "Enter": 0xFF0D, "Escape": 0xFF1B, "F1": 0xFFBE}
CTRL = 37  # the code of the key itself
CONTROLS = ("list", "table", "push button", "text", "combo box", "check box", "radio button")
NOT_WORDS = re.compile(r"[a-z][A-Z]|_")
NAMES = re.compile(r"HeaderDTC\w*|[\w/.-]+\.\w+|[A-Z0-9_]{3,}")  # of files, fields and labels
faults = set()
objects = 0


def editor():
    desktop = pyatspi.Registry.getDesktop(0)
    for application in [desktop.getChildAtIndex(i) for i in range(desktop.childCount)]:
        if application and application.name == "headerdtc":
            application.set_cache_mask(Atspi.Cache.NONE)  # what is true now
            return application
    return None


def wait_for(condition, seconds=10):
    until = time.monotonic() + seconds
    while not (found := condition()) and time.monotonic() < until:
        time.sleep(0.2)
    return found


# ---- what is read --------------------------------------------------------------------------------


def read_interfaces(node):
    offered = node.get_interfaces()
    if "Text" in offered:
        node.queryText().getText(0, -1)
    if "Value" in offered:
        value = node.queryValue()
        _ = value.minimumValue, value.currentValue, value.maximumValue
    if "Table" in offered:
        table = node.queryTable()
        _ = [(table.isSelected(row, column), table.getAccessibleAt(row, column))
             for row in range(min(table.nRows, 50)) for column in range(table.nColumns)]
    if "Action" in offered:
        actions = node.queryAction()
        _ = [(actions.getName(i), actions.getDescription(i)) for i in range(actions.nActions)]


def read(node, path=()):
    """All there is to be read of an object and of those in it."""
    global objects
    try:
        name, role, description, states = node.name, node.getRoleName(), node.description, node.getState()
        _ = node.getAttributes(), node.getRelationSet()
        read_interfaces(node)
        children = [node.getChildAtIndex(i) for i in range(node.childCount)]
    except Exception:  # it has gone meanwhile; whether the editor has too is seen in the end
        return
    objects += 1
    if role in CONTROLS and path[-1:] not in (("combo box",), ("text",)):
        shown = states.contains(pyatspi.STATE_SHOWING) and states.contains(pyatspi.STATE_FOCUSABLE)
        if shown and not name and not description:
            faults.add(f"without a name: {' > '.join(path)} > {role}")
        for words in (name, description):
            if NOT_WORDS.search(NAMES.sub("", words)):
                faults.add(f"not in words: {words} ({role})")
    for child in filter(None, children):
        read(child, path + (role,))


# ---- what is done --------------------------------------------------------------------------------


def look_for(role, words, within=None):
    """The one that is meant. Each word of an object is asked for over a bus, and controls have many
    in them, so only what groups them is looked into."""
    def found(node):
        for child in filter(None, [node.getChildAtIndex(i) for i in range(node.childCount)]):
            kind = child.getRoleName()
            if (kind == role and (child.name.strip().startswith(words) or child.description == words)
                    and (role == "page tab" or child.getState().contains(pyatspi.STATE_SHOWING))):
                return child
            if kind not in CONTROLS + ("menu bar",) and (inner := found(child)):
                return inner
        return None

    return wait_for(lambda: found(within or editor()))


def find(*what):
    return look_for(*what) or sys.exit(f"there is no {what[0]} '{what[1]}'")


def key(stroke):
    *held, last = stroke.split("+")
    generate = pyatspi.Registry.generateKeyboardEvent
    _ = held and generate(CTRL, None, pyatspi.KEY_PRESS)
    generate(KEYS.get(last) or ord(last), None, pyatspi.KEY_SYM)
    _ = held and generate(CTRL, None, pyatspi.KEY_RELEASE)


def click(role, words, *within):
    node, box = find(role, words, *within), None
    while box != (now := node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)):
        box = now  # what was just laid out may still move
        time.sleep(0.3)
    x, y = box.x + min(20, box.width // 2), box.y + box.height // 2
    pyatspi.Registry.generateMouseEvent(x, y, pyatspi.MOUSE_B1C)


def type_at(*place):
    click(*place)
    key("n")


def choose_another_provider():
    click("combo box", "Select a dataprovider")
    for stroke in ("Down", "Enter"):
        time.sleep(0.5)
        key(stroke)


def turns(*tabs):
    return [(f"turn to {tab}", lambda tab=tab: find("page tab", tab).queryAction().doAction(0), [])
            for tab in tabs]


# What is done, and the windows that stand beside the main one then.
STEPS = [
    *turns("EAI Link", "ZEKO Link", "ZEKO"),
    ("open the script", lambda: click("table cell", "...", find("table", "ZEKO selection criteria")),
     ["Specify script"]),
    ("leave it", lambda: (find("radio button", "Constant"), key("Escape")), []),
    ("type in a list", lambda: type_at("list item", "3 - NAME2",
                                       find("list", "Available ZEKO fields"))
     or bool(look_for("text", "Find in the list")), []),
    ("type in a cell", lambda: type_at("table cell", "NL",
                                       find("table", "ZEKO selection criteria")), ["HeaderDTC"]),
    ("agree to the warning", lambda: key("Enter")
     or bool(look_for("text", "Value of ZEKO criterion")), []),
    *turns("EAI", "I18N"),
    ("mark a field", lambda: click("list item", "108 - MARGIN12",
                                   find("list", "Translate names of ZEKO fields")), ["Question"]),
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
    names = [window.name for window in editor() or () if window]
    return [name for name in names if not re.search(r"\.asp\*? – HeaderDTC$", name)]


def is_in_front():
    return any(window and window.getState().contains(pyatspi.STATE_ACTIVE)
               for window in editor() or ())


def perform(what, act, expected):
    """A busy machine may lose a click or a key: where nothing came of it, it is done once more."""
    for _ in range(4):
        wait_for(is_in_front)
        done = act()
        time.sleep(0.5)
        if done is not False and wait_for(lambda: windows_beside() == expected):
            return
    faults.add(f"{what}: there are {windows_beside()}, not {expected}")


wait_for(lambda: editor() and editor().childCount, 60)
before = None
for step in STEPS:
    perform(*step)
    if step[0] in LOOKED_AT:
        read(editor())
    for window in editor():
        if window and window.name in step[2]:
            read(window)
    if step[0] == "turn to ZEKO":
        chosen = find("list", "Selected ZEKO fields").name
        if before and chosen != "Selected ZEKO fields, 0 items":
            faults.add(f"another provider, and still {chosen}")
        before = chosen
print(f"{objects} objects read, {len(faults)} faults")
for fault in sorted(faults):
    print(fault)
sys.exit(1 if faults else 0)
