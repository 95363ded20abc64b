"""The picture of the window that is taken where there is no display shows the window and nothing around it.

Usage: picture.py PROGRAM. Ends with status 77 and a reason when a program for taking it is missing.
"""

import os
import shutil
import subprocess
import sys
import tempfile

import session

RUN_HEADLESS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts", "run-headless")
TITLE = "Corvella Main Window"


def take(program, home):
    """The path of the picture."""
    picture = os.path.join(home, "pictures", "window.png")
    environment = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")}
    environment.update({"HOME": home, "LC_ALL": "C.UTF-8"})
    command = [RUN_HEADLESS, "--title", TITLE, "--screenshot", picture, "--", program]
    subprocess.run(command, env=environment, check=True)
    return picture


def look(picture, what):
    return subprocess.run(["identify", "-format", what, picture], capture_output=True, text=True, check=True).stdout


def main():
    if len(sys.argv) != 2:
        print(__doc__)
        return 2
    for program in ("Xvfb", "xauth", "xdotool", "import"):
        if shutil.which(program) is None:
            print("skipped: this needs " + program)
            return session.SKIPPED
    with tempfile.TemporaryDirectory(prefix="corvella picture ") as home:
        picture = take(sys.argv[1], home)
        width, height = map(int, look(picture, "%w %h").split())
        assert 400 < width < 1280 and 300 < height < 800, (width, height)
        for x, y in ((0, 0), (width - 1, 0), (0, height - 1), (width - 1, height - 1)):
            colour = look(picture, "%%[pixel:p{%d,%d}]" % (x, y))
            assert "0,0,0" not in colour and colour != "black", (x, y, colour)
    return 0


if __name__ == "__main__":
    sys.exit(main())
