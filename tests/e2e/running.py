"""One program at a time, and its end: a second start, a file argument, SIGTERM with unsaved work, help.

Usage: running.py PROGRAM. Ends with status 77 and a reason when the display or the accessibility bus is missing.
"""

import signal
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

import session


def drive(home, executable):
    from desktop import PATIENCE, Atspi

    # The accessibility bus must run before the program starts, which looks for it only then.
    Atspi.get_desktop(0).get_child_count()
    for part in (second_start, silent_program, file_argument, help_book, end_while_saving, end_in_editor):
        process = subprocess.Popen([executable])
        try:
            part(home, executable, process)
            if process.poll() is None:
                process.send_signal(signal.SIGTERM)
            assert process.wait(PATIENCE) == 0, part.__name__
        finally:
            process.kill()
            process.wait()
        print(part.__name__, "ok")


def start_again(executable, *arguments):
    return subprocess.run([executable, *arguments], capture_output=True, text=True, timeout=30)


def main_window():
    from desktop import Program

    return Program("Corvella", "Corvella Main Window")


def stacked_last():
    """The title of the window in front of all others."""
    tree = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Corvella"], capture_output=True, text=True)
    last = tree.stdout.split()[-1]
    return subprocess.run(["xdotool", "getwindowname", last], capture_output=True, text=True).stdout.strip()


def second_start(home, executable, process):
    """The second start ends, the first one's window is in front again."""
    from desktop import Program, press_keys, wait_for

    main_window()
    press_keys("F1")
    Program("Corvella", "Corvella Help")
    wait_for("help in front", lambda: stacked_last() == "Corvella Help")
    again = start_again(executable)
    assert (again.returncode, again.stdout) == (0, ""), again
    wait_for("the main window in front", lambda: stacked_last() == "Corvella Main Window")
    assert process.poll() is None


def answer_alert(program, *keys):
    """Waits for the alert of a program without another window, and presses those keys in it."""
    from desktop import press_keys, wait_for

    def alert():
        found = subprocess.run(
            ["xdotool", "search", "--onlyvisible", "--pid", str(program.pid), "--name", "^Corvella$"], capture_output=True
        )
        return found.stdout.strip()

    window = wait_for("the alert", alert)
    subprocess.run(["xdotool", "windowfocus", "--sync", window.split()[-1]], check=True)
    press_keys(*keys)


def silent_program(home, executable, process):
    """Of one that does not answer a window tells, and offers to try again or to quit."""
    from desktop import PATIENCE

    main_window()
    process.send_signal(signal.SIGSTOP)
    try:
        again = subprocess.Popen([executable], stderr=subprocess.PIPE, text=True)
        answer_alert(again, "Escape")
        assert again.wait(PATIENCE) == 1
        assert again.stderr.read().count("\n") == 1
        again = subprocess.Popen([executable])
        answer_alert(again, "Return")
    finally:
        process.send_signal(signal.SIGCONT)
    assert again.wait(PATIENCE) == 0
    assert process.poll() is None


def file_argument(home, executable, process):
    """Refused in a window, and with one line that names the file that is opened."""
    from desktop import PATIENCE

    main_window()
    refused = subprocess.Popen([executable, "somebody's.corvella"], stderr=subprocess.PIPE, text=True)
    answer_alert(refused, "Return")
    assert refused.wait(PATIENCE) == 2
    told = refused.stderr.read()
    assert told.count("\n") == 1, told
    assert "somebody's.corvella" in told and session.data_file(home) in told, told
    assert process.poll() is None


def help_book(home, executable, process):
    """F1 and the Help button of a modal editor, in which the help can be used."""
    from desktop import Program, press_keys, text_of, wait_for

    main_window()
    press_keys("ctrl+shift+c")
    editor = Program("Corvella", "Category Editor")
    # The editor runs modally, so an accessibility action would wait for its end; a key does not.
    press_keys("alt+h")
    shown = Program("Corvella", "Corvella Help")
    page = shown.find("label", "Help Page")
    wait_for("the page of the editor", lambda: text_of(page).startswith("Categories\n"))
    wait_for("help in front", lambda: stacked_last() == "Corvella Help")
    press_keys("alt+Home")
    wait_for("the start page", lambda: text_of(shown.find("label", "Help Page")).startswith("Corvella Help\n"))
    press_keys("ctrl+w")
    editor.find("push button", "Add")


def end_while_saving(home, executable, process):
    """What was recorded a moment before SIGTERM is in the file."""
    from desktop import fill, press_keys

    program = main_window()
    fill(program.field("Amount"), "12.34")
    fill(program.box_field("Paid To/From"), "Corner Shop")
    fill(program.box_field("Category"), "Groceries")
    press_keys("ctrl+Return")
    process.send_signal(signal.SIGTERM)
    process.wait()
    assert payees(home) == ["Corner Shop"], payees(home)


def end_in_editor(home, executable, process):
    """What is typed in a cell is kept, on SIGINT too."""
    from desktop import act, press_keys, type_text, wait_for

    program = main_window()
    wait_for("the transaction", lambda: program.rows("Transactions") == 1)
    act(program.field("Search"), "SetFocus")
    press_keys("Tab", "Home", "Right", "Right", "F2")
    type_text("Baker")
    process.send_signal(signal.SIGINT)
    process.wait()
    assert payees(home) == ["Baker"], payees(home)


def payees(home):
    budget = ElementTree.parse(session.data_file(home)).getroot()
    return [transaction.findtext("PayToFrom") for transaction in budget.iter("Transaction")]


if __name__ == "__main__":
    sys.exit(session.main(drive, __doc__))
