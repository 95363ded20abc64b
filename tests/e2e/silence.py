"""Standard error stays empty while all goes well: with no file yet and with the sample, through every window.

Usage: silence.py PROGRAM. Ends with status 77 and a reason when the display or the accessibility bus is missing. The
program of a build folder is needed, beside which the one that makes the sample lies.
"""

import os
import subprocess
import sys
import tempfile
import time

import session

SAMPLE_HOME = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts", "sample-home")
# The keys that open each window, and the window's title; Escape closes it.
WINDOWS = (
    (("F1",), "Corvella Help"),
    (("ctrl+shift+c",), "Category Editor"),
    (("ctrl+shift+s",), "Transaction Sets"),
    (("ctrl+comma",), "Corvella Preferences"),
    (("alt+f", "u"), "Page Setup"),
    (("alt+f", "a"), "Earlier Versions"),
    (("alt+h", "a"), "About Corvella"),
)
# These windows open only when there is something to write.
OUTPUT_WINDOWS = (
    (("ctrl+e",), "Export Transactions"),
    (("ctrl+p",), "Print"),
    (("ctrl+shift+p",), "Print Preview.*"),
)
TABS = ("ctrl+1", "ctrl+2", "ctrl+3")
ATTEMPTS = 10
BETWEEN_ATTEMPTS = 0.2


def drive(home, executable):
    from desktop import Atspi

    # The accessibility bus must run before the program starts, which looks for it only then.
    Atspi.get_desktop(0).get_child_count()
    walk_through_windows(home, executable, with_sample=False)
    walk_through_windows(home, executable, with_sample=True)


def walk_through_windows(home, executable, with_sample):
    from desktop import PATIENCE, Program, press_keys

    folder = os.path.join(home, "sample" if with_sample else "fresh")
    os.mkdir(folder)
    if with_sample:
        subprocess.run([SAMPLE_HOME, os.path.dirname(executable), folder], check=True)
    with tempfile.TemporaryFile("w+") as errors:
        process = subprocess.Popen([executable], stderr=errors, env=environment_of(folder))
        try:
            program = Program("Corvella", "Corvella Main Window")
            if with_sample:
                check_completion(program)
            for tab in TABS:
                press_keys(tab)
                for keys, title in WINDOWS + (OUTPUT_WINDOWS if with_sample else ()):
                    look_at(keys, title)
            look_at_system_information()
            if with_sample:
                look_at_cell(program)
            press_keys("ctrl+q")
            assert process.wait(PATIENCE) == 0
        finally:
            process.kill()
            process.wait()
            errors.seek(0)
            said = errors.read()
            print(said, end="")
        assert said == "", "standard error is not empty"


def look_at(keys, title, owner="Corvella Main Window"):
    """Opens a window with those keys, where it is not open yet, and closes it."""
    from desktop import press_keys, wait_for

    if keys:
        press_keys(*keys)
    wait_for(title, lambda: shown(title))
    focus(title)
    press_keys("Escape")
    wait_for("the end of " + title, lambda: not shown(title))
    focus(owner)


def look_at_system_information():
    """What is sent with a question for a newer version: a sheet of the preferences."""
    from desktop import Program, press_keys, wait_for

    press_keys("ctrl+comma")
    preferences = Program("Corvella", "Corvella Preferences")
    preferences.press("page tab", "Update")
    focus("Corvella Preferences")
    preferences.find("push button", "Learn More")
    look_at(("alt+l",), "What Is Sent", "Corvella Preferences")
    press_keys("Escape")
    wait_for("the end of the preferences", lambda: not shown("Corvella Preferences"))
    focus("Corvella Main Window")


def look_at_cell(program):
    """The transactions behind a cell of the grid, which the mouse opens."""
    from desktop import Atspi, press_keys, wait_for

    # The week before is complete on any day.
    press_keys("ctrl+2", "ctrl+Left")

    def filled():
        cells = (program.cell("Periods", row, day) for row in range(program.rows("Periods")) for day in range(7))
        return next((cell for cell in cells if cell.get_name()), None)

    cell = Atspi.Component.get_extents(wait_for("a cell with a sum", filled), Atspi.CoordType.SCREEN)
    middle = [str(cell.x + cell.width // 2), str(cell.y + cell.height // 2)]
    subprocess.run(["xdotool", "mousemove", *middle, "click", "--repeat", "2", "--delay", "50", "1"], check=True)
    look_at((), "Transaction Window")


def environment_of(folder):
    """Without a runtime folder, as in a session that was begun with su or over ssh."""
    environment = dict(os.environ)
    for kind in ("data", "config", "cache"):
        environment["XDG_%s_HOME" % kind.upper()] = os.path.join(folder, kind)
    del environment["XDG_RUNTIME_DIR"]
    return environment


def shown(title):
    """Whether a window of that title, a regular expression, is on the screen."""
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^%s$" % title], capture_output=True)
    return found.stdout != b""


def focus(title):
    """Gives the keyboard to that window, as a window manager would."""
    search = ["xdotool", "search", "--onlyvisible", "--name", "^%s$" % title, "windowfocus", "--sync"]
    # A search that meets a window that is just being closed fails as a whole.
    for _ in range(ATTEMPTS - 1):
        if subprocess.run(search, stderr=subprocess.DEVNULL).returncode == 0:
            return
        time.sleep(BETWEEN_ATTEMPTS)
    subprocess.run(search, check=True)


def check_completion(program):
    """The first letters of a payee of the sample bring the rest."""
    from desktop import act, press_keys, text_of, type_text, wait_for

    act(program.field("Amount"), "SetFocus")
    press_keys("Tab")
    field = program.box_field("Paid To/From")
    type_text("Town T")
    wait_for("a completed payee", lambda: text_of(field) == "Town Transit")


if __name__ == "__main__":
    sys.exit(session.main(drive, __doc__))
