#!/usr/bin/python3 -B
"""Prints the milliseconds from the start of a program until its window shows something.

    coldstart.py PROGRAM [ARGUMENT...]

It has an X server to itself. It shows something when the middle of its window, where a page's contents are,
has COLOURS colours: texts have many shades, an empty background has one.
"""

import os
import subprocess
import sys
import time

from Xlib import X, display, error

LIMIT = 30  # seconds
COLOURS = 8
SIZE = 1920, 1080


def start_server():
    """An X server without anything, and its display's name."""
    reading, writing = os.pipe()
    server = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{SIZE[0]}x{SIZE[1]}x24", "-nolisten", "tcp"],
        pass_fds=[writing], stderr=subprocess.DEVNULL)
    os.close(writing)
    with os.fdopen(reading) as pipe:
        return server, f":{pipe.readline().strip()}"


def shows_something(root):
    """Whether a window that is mapped does. One that goes meanwhile does not."""
    try:
        return any(map(has_contents, root.query_tree().children))
    except error.XError:
        return False


def has_contents(window):
    """Whether the middle of a window is more than a background."""
    attributes, place = window.get_attributes(), window.get_geometry()
    if attributes.map_state != X.IsViewable or attributes.override_redirect or place.width < 200:
        return False
    image = window.get_image(place.width // 4, place.height // 4, place.width // 2, place.height // 2,
                             X.ZPixmap, 0xffffffff).data
    return len(set(image[i:i + 3] for i in range(0, len(image), 4 * 7))) >= COLOURS


def main():
    server, name = start_server()
    try:
        root = display.Display(name).screen().root
        environment = {**os.environ, "DISPLAY": name, "QT_QPA_PLATFORM": "xcb"}
        start = time.monotonic()
        program = subprocess.Popen(sys.argv[1:], env=environment, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        while not shows_something(root):
            if program.poll() is not None or time.monotonic() - start > LIMIT:
                sys.exit(f"{sys.argv[1]} shows nothing")
            time.sleep(0.001)
        print(round(1000 * (time.monotonic() - start), 1))
        program.kill()
        program.wait()
    finally:
        server.terminate()
        server.wait()


if __name__ == "__main__":
    main()
