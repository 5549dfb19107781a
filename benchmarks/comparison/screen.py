"""A virtual X screen for programs that draw."""

import contextlib
import os
import subprocess


@contextlib.contextmanager
def virtual_screen():
    """Sets DISPLAY to a screen of its own while it lasts."""
    read, write = os.pipe()
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
        pass_fds=[write],
        stderr=subprocess.DEVNULL,
    )
    os.close(write)
    with os.fdopen(read) as numbers:
        number = numbers.readline().strip()
    if not number:
        raise RuntimeError("Xvfb does not start")
    former = os.environ.get("DISPLAY")
    os.environ["DISPLAY"] = ":" + number
    try:
        yield
    finally:
        server.terminate()
        server.wait()
        os.environ.pop("DISPLAY")
        if former is not None:
            os.environ["DISPLAY"] = former
