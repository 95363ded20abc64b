"""Installs the program below a prefix of its own, looks at what lies there, and drives it from there.

Usage: installed.py CMAKE BUILD-FOLDER. Ends with status 77 and a reason when what running.py needs is missing.
"""

import configparser
import os
import subprocess
import sys
import tempfile

PROGRAM = "bin/corvella"
EXPECTED = {
    PROGRAM,
    "share/applications/corvella.desktop",
    "share/corvella/help/corvella.qch",
    "share/icons/hicolor/128x128/apps/corvella.png",
    "share/icons/hicolor/scalable/apps/corvella.svg",
}


def installed_files(prefix):
    found = set()
    for folder, _, names in os.walk(prefix):
        found.update(os.path.relpath(os.path.join(folder, name), prefix) for name in names)
    return found


def check_desktop_entry(prefix):
    entry = configparser.ConfigParser(interpolation=None)
    entry.optionxform = str
    entry.read(os.path.join(prefix, "share/applications/corvella.desktop"), encoding="utf-8")
    values = entry["Desktop Entry"]
    # The command has no field code, because the program opens no files.
    assert values["Exec"] == os.path.basename(PROGRAM), values["Exec"]
    assert values["Icon"] == "corvella", values["Icon"]


def main():
    if len(sys.argv) != 3:
        print(__doc__)
        return 2
    cmake, build = sys.argv[1:]
    with tempfile.TemporaryDirectory(prefix="corvella prefix ") as prefix:
        subprocess.run([cmake, "--install", build, "--prefix", prefix], check=True, stdout=subprocess.DEVNULL)
        files = installed_files(prefix)
        assert files == EXPECTED, files ^ EXPECTED
        check_desktop_entry(prefix)
        running = os.path.join(os.path.dirname(os.path.abspath(__file__)), "running.py")
        return subprocess.call([sys.executable, running, os.path.join(prefix, PROGRAM)])


if __name__ == "__main__":
    sys.exit(main())
