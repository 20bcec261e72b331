"""Processes that a test starts and ends again, each by its process id."""

import os
import select
import subprocess
import time

START_LIMIT = 60  # seconds, on a loaded machine
END_LIMIT = 15


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
