"""The displays that a desktop can have: X11, and Wayland by way of two compositors.

The compositors show what they compose in a window on an X server without a screen. So keys are pressed and
pictures are taken in one way, and screen readers that ask for an X display find one.
"""

import json
import os
import pwd
import socket
import subprocess
import tempfile
from collections import namedtuple

# Pixels; and on Wayland how many of them are one for programs, in each direction.
Screen = namedtuple("Screen", "width height scale")

NOTICE_LIMIT = 60  # seconds, on a loaded machine


class X11:
    """With a window manager that has no other purpose."""

    platform = "xcb"
    screen = Screen(1400, 900, 1)
    screens = (screen, Screen(1400, 900, 1.5))  # those that use() knows
    closing_key = "alt+F4"

    def __init__(self):
        self.folder = tempfile.TemporaryDirectory(prefix="display.")

    def start(self, processes):
        """Starts it, and tells programs by the environment where it is."""
        size = f"{self.screen.width}x{self.screen.height}x24"
        os.environ["DISPLAY"] = ":" + processes.start(
            "display",
            ["Xvfb", "-displayfd", "1", "-screen", "0", size, "-dpi", "96", "-nolisten", "tcp"]
            + ["-noreset", "-ac", "-fbdir", self.folder.name],
            ready="",
        )
        os.environ["QT_QPA_PLATFORM"] = self.platform
        self.start_windows(processes)

    def start_windows(self, processes):
        """Starts what manages windows."""
        # openbox says nothing when it is ready; a window that comes earlier is managed all the same.
        processes.start("window-manager", ["openbox", "--sm-disable"])

    def clean_up(self):
        """Removes what is left when everything has ended."""
        self.folder.cleanup()

    def use(self, screen):
        """Has programs believe in another screen, of the same size here; the environment for them."""
        self.screen = self.screen._replace(scale=screen.scale)
        return {"QT_FONT_DPI": str(round(96 * screen.scale))}

    def area(self):
        """Left, top, right and bottom of the screen, as programs count."""
        return 0, 0, *(int(size / self.screen.scale) for size in self.screen[:2])

    def origin(self):
        """Where on the screen the accessibility bus has its coordinates begin."""
        return 0, 0

    def picture(self, left, top, width, height):
        """What is shown of an area, in the coordinates of the accessibility bus: its rows of pixels."""
        left, top = (at + start for at, start in zip((left, top), self.origin()))
        with open(f"{self.folder.name}/Xvfb_screen0", "rb") as file:
            # The format of xwd: a header of numbers, a table of colours of 12 bytes, the pixels.
            header = file.read(100)
            size, stride, colours = (
                int.from_bytes(header[at : at + 4], "big") for at in (0, 48, 76)
            )
            rows = []
            for row in range(top, top + height):
                file.seek(size + 12 * colours + row * stride + 4 * left)
                rows.append(file.read(4 * width))
        return rows


class Wayland(X11):
    """What both compositors have in common."""

    platform = "wayland"

    def start(self, processes):
        # When a list that has the focus closes, Qt asks for an activation, and warns that there is none.
        os.environ["QT_LOGGING_RULES"] = "qt.qpa.wayland.warning=false"
        super().start(processes)


class Sway(Wayland):
    """Draws the frames of windows itself. A window fills the screen."""

    screens = (*X11.screens, Screen(2800, 1800, 2), Screen(1366, 768, 1.5))
    CONFIGURATION = """
        output X11-1 mode --custom {width}x{height}
        output X11-1 scale {scale}
        bindsym Mod1+F4 kill
        exec echo "ready $WAYLAND_DISPLAY $SWAYSOCK"
    """

    def start_windows(self, processes):
        self._own_folder = tempfile.TemporaryDirectory(prefix="sway.")
        folder = self._own_folder.name
        with open(f"{folder}/config", "w", encoding="ascii") as file:
            file.write(self.CONFIGURATION.format(**self.screen._asdict()))
        command = ["sway", "-c", f"{folder}/config"]
        if os.geteuid() == 0:  # which it refuses to be
            nobody = pwd.getpwnam("nobody")
            os.chown(folder, nobody.pw_uid, nobody.pw_gid)
            user = [f"--reuid={nobody.pw_uid}", f"--regid={nobody.pw_gid}", "--clear-groups"]
            command = ["setpriv", *user, "--pdeathsig", "TERM", *command]
        environment = {
            "HOME": folder,
            "XDG_RUNTIME_DIR": folder,
            "WLR_BACKENDS": "x11",
            "WLR_RENDERER": "pixman",
        }
        line = processes.start("sway", command, ready="ready", environment=environment)
        _, display, os.environ["SWAYSOCK"] = line.split()
        os.environ["WAYLAND_DISPLAY"] = os.path.join(folder, display)

    def clean_up(self):
        self._own_folder.cleanup()
        super().clean_up()

    def use(self, screen):
        self.screen = screen
        mode = f"mode --custom {screen.width}x{screen.height} scale {screen.scale}"
        subprocess.run(["swaymsg", "--quiet", f"output X11-1 {mode}"], check=True)
        return {}

    def origin(self):
        """That of the window's content: on Wayland, programs know of no other."""
        done = subprocess.run(
            ["swaymsg", "-t", "get_tree"], capture_output=True, text=True, check=True
        )
        (window,) = self._windows(json.loads(done.stdout))
        return tuple(window["rect"][axis] + window["window_rect"][axis] for axis in "xy")

    def _windows(self, node):
        # A list that opens before any key is pressed is a window, too; it has no title.
        if node.get("app_id") and node["name"] != node["app_id"]:
            yield node
        for child in node["nodes"] + node["floating_nodes"]:
            yield from self._windows(child)


class Weston(Wayland):
    """Leaves the frames of windows to Qt, and has no key that closes one."""

    # Where the window has no room, it fills the screen: others are put somewhere.
    screen = Screen(1280, 700, 1)
    closing_key = "ctrl+q"
    CONFIGURATION = """
[core]
modules=systemd-notify.so
idle-time=0
[shell]
panel-position=none
locking=false
"""

    def start_windows(self, processes):
        folder = self.folder.name
        with open(f"{folder}/weston.ini", "w", encoding="ascii") as file:
            file.write(self.CONFIGURATION)
        size = [f"--width={self.screen.width}", f"--height={self.screen.height}"]
        environment = {"XDG_RUNTIME_DIR": folder, "NOTIFY_SOCKET": f"{folder}/notices"}
        with socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM) as notices:
            notices.bind(environment["NOTIFY_SOCKET"])
            notices.settimeout(NOTICE_LIMIT)
            processes.start(
                "weston",
                ["weston", "--backend=x11-backend.so", "--use-pixman", "--socket=wayland"]
                + [f"--config={folder}/weston.ini", f"--scale={self.screen.scale}", *size],
                environment=environment,
            )
            while b"READY=1" not in notices.recv(4096):
                pass
        os.environ["WAYLAND_DISPLAY"] = f"{folder}/wayland"

    def origin(self):
        """That of the window's content inside the frame that Qt draws."""
        return 3, 30


DISPLAYS = {"x11": X11, "sway": Sway, "weston": Weston}
