"""A desktop session for tests: display, accessibility bus, services, microphone.

It needs a session bus and a system bus, see tests/support/with-buses, and is told by the environment
where the built programs are, and which of the displays it has:

  CONTROL_CENTER, MODULE_FILE, SERVICES_DIR, MICROPHONE_SCRIPT, DESKTOP_DISPLAY, WITH_TRANSLATIONS
"""

import json
import os
import select
import shlex
import subprocess
import tempfile
import time

import displays

from gi.repository import Gio, GLib

START_LIMIT = 60  # seconds, on a loaded machine
END_LIMIT = 15

SERVICES = ("assistant", "dock", "keybinding", "networkmanager", "audio", "aiservice")


class Processes:
    """What a test has started; end() ends it, the latest first.

    Each process dies with the test, even if that is killed. What a process writes to standard error
    is kept in FOLDER/NAME.log.
    """

    def __init__(self, folder):
        self._folder = folder
        self._started = []

    def log(self, name):
        """What the process NAME has written to standard error."""
        with open(self._log_file(name), encoding="utf-8", errors="replace") as file:
            return file.read()

    def start(self, name, command, ready=None, environment=None):
        """Starts COMMAND; with READY, waits for a line that begins so and returns the line."""
        with open(self._log_file(name), "wb") as log:
            process = subprocess.Popen(
                ["setpriv", "--pdeathsig", "TERM", *command],
                stdin=subprocess.DEVNULL,
                stdout=subprocess.DEVNULL if ready is None else subprocess.PIPE,
                stderr=log,
                env={**os.environ, **(environment or {})},
            )
        self._started.append(process)
        if ready is None:
            return process
        return self._wait_for_line(name, process, ready)

    def wait_for_end(self, process):
        """Waits until a process ends by itself, as is expected of it; returns its exit code."""
        code = process.wait(END_LIMIT)
        self._started.remove(process)
        return code

    def end(self):
        """Ends everything, the latest first. Returns what had ended before, or did not end well."""
        problems = []
        for process in reversed(self._started):
            if process.poll() is not None:
                problems.append(f"{process.args[3]} had ended with {process.returncode}")
                continue
            process.terminate()
            try:
                process.wait(END_LIMIT)
            except subprocess.TimeoutExpired:
                problems.append(f"{process.args[3]} did not end")
                process.kill()
                process.wait()
        for process in self._started:
            if process.stdout is not None:
                process.stdout.close()
        self._started.clear()
        return problems

    def _log_file(self, name):
        return os.path.join(self._folder, name + ".log")

    def _wait_for_line(self, name, process, ready):
        deadline = time.monotonic() + START_LIMIT
        text = b""
        while True:
            *lines, text = text.split(b"\n")
            for line in lines:
                if line.decode().startswith(ready):
                    return line.decode()
            left = deadline - time.monotonic()
            if left <= 0 or not select.select([process.stdout], [], [], left)[0]:
                raise TimeoutError(f"{name} did not get ready: {self.log(name)}")
            chunk = os.read(process.stdout.fileno(), 4096)
            if not chunk:
                raise RuntimeError(f"{name} ended: {self.log(name)}")
            text += chunk


def wait_for_name(bus, name):
    """Waits until somebody owns the name on the bus."""
    loop = GLib.MainLoop()
    owners = []

    def appeared(_bus, _name, owner):
        owners.append(owner)
        loop.quit()

    watch = Gio.bus_watch_name_on_connection(bus, name, 0, appeared, None)
    limit = GLib.timeout_add_seconds(START_LIMIT, loop.quit)
    loop.run()
    Gio.bus_unwatch_name(watch)
    if not owners:
        raise TimeoutError(f"nobody owns {name}")
    GLib.source_remove(limit)


class Desktop:
    """Started by the constructor; to be ended by end(), also when a test fails."""

    def __init__(self, microphone):
        self._folder = tempfile.TemporaryDirectory(prefix="desktop.")
        self._processes = Processes(self._folder.name)
        self.display = displays.DISPLAYS[os.environ.get("DESKTOP_DISPLAY", "x11")]()
        try:
            self.display.start(self._processes)
            self._start_accessibility_bus()
            self._start_microphone(microphone)
            for service in SERVICES:
                program = f"{os.environ['SERVICES_DIR']}/sandbox-{service}"
                state = f"{self._folder.name}/{service}.json"
                self._processes.start(service, [program, "--state", state], ready="ready")
        except BaseException:
            self.end()
            raise

    def end(self):
        """Ends all of it; raises when something had ended too early or did not end in order."""
        problems = self._processes.end()
        self.display.clean_up()
        self._folder.cleanup()
        if problems:
            raise RuntimeError("; ".join(problems))

    def open_window(self, *arguments, locale=None, warnings_are_fatal=True, environment=None):
        """Starts the control center with the built module, in the language of LOCALE."""
        command = [os.environ["CONTROL_CENTER"], "--plugin", os.environ["MODULE_FILE"], *arguments]
        if locale:
            command = [os.environ["WITH_TRANSLATIONS"], *command, f"--locale={locale}"]
        environment = dict(environment or {})
        # Whatever Qt or the module warns of is a defect.
        if warnings_are_fatal:
            environment["QT_FATAL_WARNINGS"] = "1"
        return self._processes.start("control-center", command, environment=environment)

    def speech_socket(self):
        """Where the screen reader looks for its speech service."""
        return f"{self._folder.name}/speech"

    def start_screen_reader(self):
        """Starts Orca; it needs the speech service."""
        environment = {
            "SPEECHD_ADDRESS": f"unix_socket:{self.speech_socket()}",
            "GSETTINGS_BACKEND": "memory",
            "XDG_DATA_HOME": f"{self._folder.name}/orca",
        }
        self._processes.start("orca", ["orca"], environment=environment)

    def wait_for_end(self, program):
        """Waits for the end of what open_window() returned; its exit code."""
        return self._processes.wait_for_end(program)

    def press(self, *keys):
        """Presses keys as xdotool names them, such as Tab, space, or ctrl+f."""
        subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], check=True)

    def type(self, text):
        """Types TEXT."""
        subprocess.run(["xdotool", "type", "--clearmodifiers", text], check=True)

    def picture(self, left, top, width, height):
        """What is shown of an area, in the coordinates of the accessibility bus: its rows of pixels."""
        return self.display.picture(left, top, width, height)

    def window_log(self):
        """What the control center has written to standard error."""
        return self._processes.log("control-center")

    def value(self, service, key):
        """A value of a service's state, as text."""
        return self._control(service, "get", key)

    def set_value(self, service, key, value):
        """Changes a value of a service's state as if another program had done it."""
        self._control(service, "set", key, value)

    def calls(self, service, member):
        """The calls of MEMBER that a service has received, each with its list of "arguments"."""
        lines = self._control(service, "calls").splitlines()
        calls = [json.loads(line) for line in lines]
        return [call for call in calls if call["member"] == member]

    def script(self, service, member, *behaviour):
        """Changes how a service answers a call; see sandbox-control --help."""
        self._control(service, "script", member, *behaviour)

    def reset(self, service):
        """Makes a service answer truly again, and forget the calls received."""
        self._control(service, "reset")

    def choose_microphone(self, kind):
        """What the microphone hears from the next recording on."""
        with open(f"{self._folder.name}/microphone/kind", "w", encoding="ascii") as file:
            file.write(kind + "\n")

    def _start_accessibility_bus(self):
        """The buses of tests start no services by themselves, so the launcher is started here."""
        os.environ["XDG_RUNTIME_DIR"] = self._folder.name
        self._processes.start(
            "accessibility-bus", ["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"]
        )
        session = Gio.bus_get_sync(Gio.BusType.SESSION)
        wait_for_name(session, "org.a11y.Bus")
        (address,) = session.call_sync(
            "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None, 0, -1
        ).unpack()
        # Programs enlist themselves when they start, once; the registry must be up by then.
        bus = Gio.DBusConnection.new_for_address_sync(
            address,
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
        )
        bus.call_sync(
            "org.a11y.atspi.Registry",
            "/org/a11y/atspi/accessible/root",
            "org.a11y.atspi.Accessible",
            "GetChildren",
            None,
            None,
            0,
            START_LIMIT * 1000,
        )
        bus.close_sync()
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        os.environ["QT_XCB_GL_INTEGRATION"] = "none"

    def _start_microphone(self, kind):
        folder = os.environ["SANDBOX_MICROPHONE"] = f"{self._folder.name}/microphone"
        self._processes.start(
            "microphone", [os.environ["MICROPHONE_SCRIPT"], kind, folder], ready="ready"
        )
        with open(f"{folder}/environment", encoding="utf-8") as file:
            words = shlex.split(file.read())
        os.environ.update(word.split("=", 1) for word in words if "=" in word)

    def _control(self, service, *words):
        program = f"{os.environ['SERVICES_DIR']}/sandbox-control"
        done = subprocess.run(
            [program, service, *words], capture_output=True, text=True, check=False
        )
        if done.returncode != 0:
            raise RuntimeError(f"sandbox-control {service} {words}: {done.stderr}")
        return done.stdout.rstrip("\n")
