"""The main job from outside: record, edit, search, look at the tabs, quit; then the data file is read.

Usage: main_window.py PROGRAM. Ends with status 77 and a reason when the display or the accessibility bus is missing.
"""

import subprocess
import sys
import xml.etree.ElementTree as ElementTree

import session


def drive(home, executable):
    from desktop import PATIENCE, Atspi, Program, fill, press_keys, text_of, wait_for

    # The accessibility bus must run before the program starts, which looks for it only then.
    Atspi.get_desktop(0).get_child_count()
    process = subprocess.Popen([executable])
    try:
        program = Program("Corvella", "Corvella Main Window")
        record(program, "12.34", "Corner Shop", "milk", "Groceries")
        wait_for("the first row", lambda: program.rows("Transactions") == 1)
        assert program.cell_text("Transactions", 0, 1) == "$12.34"
        assert program.cell_text("Transactions", 0, 2) == "Corner Shop"
        assert text_of(program.field("Amount")) == "$0.00"
        record(program, "2*(10+5)", "Station", "petrol", "Fuel")
        wait_for("the second row", lambda: program.rows("Transactions") == 2)
        assert text_of(program.field("Amount Total")) == "$42.34"

        fill(program.field("Search"), "corner")
        wait_for("one match", lambda: program.rows("Transactions") == 1)
        edit_first_payee(program, "Baker")
        wait_for("the edit", lambda: program.cell_text("Transactions", 0, 2) == "Baker")
        assert text_of(program.field("Transactions Shown")) == "1"
        fill(program.field("Search"), "nothing like it")
        program.press("push button", "Clear Search")
        wait_for("both rows", lambda: program.rows("Transactions") == 2)

        program.press("page tab", "Summary")
        assert program.rows("Categories") == program.rows("Periods") == 2
        assert Atspi.Table.get_row_description(program.find("table", "Periods"), 0) == "Fuel"
        program.press("page tab", "Reports")
        assert program.rows("Averages") == 2
        assert text_of(program.field("Report Transactions")) == "2"
        program.press("page tab", "Transactions")
        wait_for("saving", lambda: program.find("label", "All changes saved"))
        press_keys("ctrl+q")
        assert process.wait(PATIENCE) == 0
    finally:
        process.kill()
        process.wait()
    check_file(session.data_file(home))


def record(program, amount, payee, purpose, category):
    from desktop import fill

    fill(program.field("Amount"), amount)
    fill(program.box_field("Paid To/From"), payee)
    fill(program.field("For"), purpose)
    fill(program.box_field("Category"), category)
    program.press("push button", "Record")


def edit_first_payee(program, payee):
    """With the keyboard, from the search field on, behind which the table comes."""
    from desktop import act, press_keys, type_text

    act(program.field("Search"), "SetFocus")
    press_keys("Tab", "Home", "Right", "Right", "F2")
    type_text(payee)
    press_keys("Return")


def check_file(path):
    budget = ElementTree.parse(path).getroot()
    lines = {
        (
            transaction.find("Data").get("amount"),
            transaction.findtext("PayToFrom"),
            transaction.findtext("For"),
        )
        for transaction in budget.iter("Transaction")
    }
    assert lines == {("12.34", "Baker", "milk"), ("30.00", "Station", "petrol")}, lines


if __name__ == "__main__":
    sys.exit(session.main(drive, __doc__))
