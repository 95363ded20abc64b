"""A program on the accessibility bus, driven as an assistive technology would: controls by role and name.

Without the bindings of the bus the import fails.
"""

import subprocess
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

# The bindings of Debian 12 offer only these names, but mark them as deprecated.
warnings.simplefilter("ignore", DeprecationWarning)

PATIENCE = 15.0


def wait_for(what, condition):
    """The first true answer of condition(); fails with `what` when there is none in time."""
    deadline = time.monotonic() + PATIENCE
    while True:
        try:
            answer = condition()
        except GLib.Error:  # the object went while it was looked at
            answer = None
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise AssertionError("waited in vain for " + what)
        time.sleep(0.05)


def walk(node):
    """The node and everything below it, but not the cells of tables, of which there may be very many."""
    yield node
    if node.get_role() == Atspi.Role.TABLE:
        return
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            yield from walk(child)


class Program:
    """The program named, once it shows a window with that title."""

    def __init__(self, name, title):
        self.name = name
        self.window = wait_for(title, lambda: self._find_window(title))

    def _find_window(self, title):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            program = desktop.get_child_at_index(index)
            if program is None or program.get_name() != self.name:
                continue
            for window in range(program.get_child_count()):
                found = program.get_child_at_index(window)
                if found is not None and found.get_name() == title:
                    return found
        return None

    def find(self, role, name):
        """The shown control of that role and exactly that accessible name."""

        def look():
            for node in walk(self.window):
                if node.get_role_name() == role and node.get_name() == name:
                    if node.get_state_set().contains(Atspi.StateType.SHOWING):
                        return node
            return None

        return wait_for("%s %r" % (role, name), look)

    def field(self, name):
        return self.find("text", name)

    def box_field(self, name):
        """The text field inside a combo box."""
        box = self.find("combo box", name)
        return wait_for("the field of " + name, lambda: next(n for n in walk(box) if n.get_role_name() == "text"))

    def press(self, role, name):
        act(self.find(role, name), "Press")

    def cell(self, table, row, column):
        return wait_for("a cell", lambda: Atspi.Table.get_accessible_at(self.find("table", table), row, column))

    def cell_text(self, table, row, column):
        return self.cell(table, row, column).get_name()

    def rows(self, table):
        return Atspi.Table.get_n_rows(self.find("table", table))


def act(node, action):
    """Carries out the action of that name."""
    names = [Atspi.Action.get_action_name(node, i) for i in range(Atspi.Action.get_n_actions(node))]
    assert Atspi.Action.do_action(node, names.index(action))


def fill(node, text):
    assert Atspi.EditableText.set_text_contents(node, text)


def text_of(node):
    return Atspi.Text.get_text(node, 0, -1)


def type_text(text):
    """Types on the keyboard of the display."""
    subprocess.run(["xdotool", "type", "--delay", "20", text], check=True)


def press_keys(*names):
    """Presses keys one after the other, each by its name with its modifiers, as in ctrl+q."""
    subprocess.run(["xdotool", "key", "--delay", "20", *names], check=True)
