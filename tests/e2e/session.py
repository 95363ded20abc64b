"""A desktop of the test's own: session bus, display, home folder."""

import os
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77
INSIDE = "CORVELLA_END_TO_END"


def missing():
    """What this machine lacks, or nothing."""
    for program in ("dbus-run-session", "xvfb-run", "xdotool"):
        if shutil.which(program) is None:
            return program
    try:
        import gi

        gi.require_version("Atspi", "2.0")
    except (ImportError, ValueError):
        return "the accessibility bus and its Python bindings (gir1.2-atspi-2.0, python3-gi, at-spi2-core)"
    return None


def run_on_own_desktop():
    """Runs the present script again with a session bus, a display and a home of its own."""
    with tempfile.TemporaryDirectory(prefix="corvella e2e ") as home:
        runtime = os.path.join(home, "run")
        os.mkdir(runtime, 0o700)
        environment = dict(os.environ)
        environment.update(
            {
                INSIDE: home,
                "HOME": home,
                "XDG_RUNTIME_DIR": runtime,
                "XDG_DATA_HOME": os.path.join(home, "data"),
                "XDG_CONFIG_HOME": os.path.join(home, "config"),
                "LC_ALL": "C.UTF-8",
                "QT_QPA_PLATFORM": "xcb",
                "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            }
        )
        for name in ("WAYLAND_DISPLAY", "DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "AT_SPI_BUS_ADDRESS"):
            environment.pop(name, None)
        command = ["dbus-run-session", "--", "xvfb-run", "-a", "-s", "-screen 0 1280x800x24", sys.executable]
        return subprocess.call(command + sys.argv, env=environment)


def main(drive, usage):
    """Runs drive(home, program) on a desktop of its own; the exit status of the script."""
    if len(sys.argv) != 2:
        print(usage)
        return 2
    if INSIDE in os.environ:
        drive(os.environ[INSIDE], sys.argv[1])
        return 0
    lack = missing()
    if lack:
        print("skipped: this needs " + lack)
        return SKIPPED
    return run_on_own_desktop()


def data_file(home):
    return os.path.join(home, "data", "Quenby Labs", "Corvella", "Corvella Data.corvella")
