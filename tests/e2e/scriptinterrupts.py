#!/usr/bin/python3 -B
"""Ends scripts/run at random moments and looks for what it leaves behind.

    scriptinterrupts.py PROJECT [--interrupts N] [--kills N] [--seed N] [--only PHASE]

Each run is a tour, a window, an installation or a build, interrupted by INT, TERM or HUP, sent to the
script alone or to its process group as a terminal does it, every other time once more. It must end with
128 + the signal's number within LIMIT seconds, and leave no process and no file. A script that is killed,
alone or with its process group, must take with it all that it has started; one that loses another of
its processes must still end in order.
"""

import argparse
import glob
import itertools
import os
import pathlib
import random
import signal
import subprocess
import sys
import tempfile
import time

LIMIT = 5  # seconds
SHELL_START = 1  # seconds, in which the signal may end the shell itself, in the middle of anything
MARK = "INTERRUPT_TEST_RUN"
SIGNALS = (signal.SIGINT, signal.SIGTERM, signal.SIGHUP)
PHASES = ("tour", "window", "tour", "window", "tour", "window", "installing", "building")
TARGETS = ("script", "group", "other")  # of kills

# Stand for programs that take long and start others, in process groups of their own too.
SLOW_PROGRAM = "#!/bin/sh\nsetsid sleep 1000 &\nsleep 1000\n"
NOTHING_INSTALLED = "#!/bin/sh\nexit 1\n"
PASS_ON = '#!/bin/sh\nexec "$@"\n'


class Run:
    """One run of the script in folders of its own."""

    def __init__(self, script, folder, phase, *arguments, state=None):
        self._mark = f"{MARK}={folder.name}"
        self._temporary = folder / "temporary files"
        self._said = folder / "said"
        self._temporary.mkdir(parents=True)
        programs = folder / "programs"
        programs.mkdir()
        if phase == "installing":
            self._make_program(programs / "dpkg-query", NOTHING_INSTALLED)
            self._make_program(programs / "apt-get", SLOW_PROGRAM)
            self._make_program(programs / "dpkg", "#!/bin/sh\n")
            self._make_program(programs / "sudo", PASS_ON)
        if phase == "building":
            self._make_program(programs / "cmake", SLOW_PROGRAM)
        arguments = ["--microphone", "speech", *arguments]
        if phase == "tour":
            arguments += ["--tour", str(folder / "pictures"), "--section", "search"]
        environment = {
            **os.environ,
            MARK: folder.name,
            "PATH": f"{programs}:{os.environ['PATH']}",
            "TMPDIR": str(self._temporary),
            "XDG_STATE_HOME": str(state or folder / "state"),
            # A window that nobody sees.
            "WAYLAND_DISPLAY": "none",
            "QT_QPA_PLATFORM": "offscreen",
        }
        self._output = open(self._said, "wb")
        self._process = subprocess.Popen(
            [script, *arguments],
            env=environment,
            stdin=subprocess.DEVNULL,
            stdout=self._output,
            stderr=subprocess.STDOUT,
            start_new_session=True,
        )

    def wait(self, seconds):
        """The exit code, or None while it runs."""
        try:
            return self._process.wait(seconds)
        except subprocess.TimeoutExpired:
            return None

    def send(self, number, to_group):
        """Sends a signal to the script, or to its process group; nothing when it has ended."""
        if self._process.poll() is None:
            (os.killpg if to_group else os.kill)(self._process.pid, number)

    def kill(self, target, generator):
        """Kills "script", "group" or "other": any other process of the script. Returns its name."""
        if target != "other":
            self.send(signal.SIGKILL, target == "group")
            return target
        others = self._wait_for_others()
        if not others:
            return "other: none was left"
        pid, name = generator.choice(others)
        try:
            os.kill(pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        return name

    def _wait_for_others(self):
        """Other processes of the script, which between two programs has none; empty when it has ended."""
        while True:
            # Whoever kills a microphone alone must remove the folder of its sound server.
            others = [
                (pid, name)
                for pid, name in self.processes().items()
                if pid != self._process.pid and name != "start"
            ]
            if others or self._process.poll() is not None:
                return others

    def processes(self):
        """What runs that the script has started, itself included: names by process id."""
        found = {}
        for folder in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                if self._mark.encode() in (folder / "environ").read_bytes().split(b"\0"):
                    found[int(folder.name)] = (folder / "comm").read_text().strip()
            except OSError:
                pass  # it has ended, or is somebody else's
        return found

    def files(self):
        """What is in the folders for temporary files, except what the script has announced."""
        files = set(map(str, self._temporary.iterdir()))
        # Of a sound server, since the name of the folder for temporary files is none for a socket.
        files |= set(glob.glob(f"/tmp/assistant-sandbox.{self._process.pid}.*.sound.*"))
        return sorted(file for file in files if f": {file}\n" not in self.said())

    def said(self):
        """What the script has written."""
        return self._said.read_text(errors="replace")

    def clean_up(self):
        """Kills what is left."""
        while left := self.processes():
            for process in left:
                try:
                    os.kill(process, signal.SIGKILL)
                except ProcessLookupError:
                    pass
            self.wait(0.01)
        self.wait(None)
        self._output.close()

    @staticmethod
    def _make_program(path, text):
        path.write_text(text)
        path.chmod(0o755)


class Test:
    """Runs with moments from a seed."""

    def __init__(self, script, folder, seed):
        self._script = script
        self._folder = folder
        self._random = random.Random(seed)
        self._numbers = itertools.count(1)
        self._tour_length = self._measured_tour()
        print(f"seed {seed}, a tour takes {self._tour_length:.1f} s", flush=True)

    def interrupt(self, index, phase):
        """One interrupted run; what was wrong, in words."""
        number = SIGNALS[index % len(SIGNALS)]
        to_group, again = self._random.random() < 0.5, self._random.random() < 0.5
        between = self._random.uniform(0, 0.5)
        run, moment = self._run_until_moment(phase)
        start = time.monotonic()
        run.send(number, to_group)
        if again and run.wait(between) is None:
            run.send(number, to_group)
        code = run.wait(LIMIT - (time.monotonic() - start))
        took = time.monotonic() - start
        problems = []
        ended_itself = code == -number and moment < SHELL_START
        if ended_itself:  # what it had started by then ends soon
            self._wait_until_gone(run, start)
        if code is None:
            problems.append(f"runs on after {LIMIT} s")
        elif code != 128 + number and not ended_itself:
            problems.append(f"exit code {code}, not {128 + number}")
        problems += self._leftovers(run)
        return self._report(
            f"{number.name}{' to the group' if to_group else ''}{', twice' if again else ''}",
            phase, moment, took, run, problems,
        )

    def kill(self, index, phase):
        """One killed run; what was wrong, in words."""
        run, moment = self._run_until_moment(phase)
        start = time.monotonic()
        killed = run.kill(TARGETS[index % len(TARGETS)], self._random)
        if run.wait(0.5) is None:
            run.send(signal.SIGTERM, False)
        code = run.wait(LIMIT)
        self._wait_until_gone(run, start)
        took = time.monotonic() - start
        problems = [f"runs on after {LIMIT} s"] if code is None else []
        problems += self._leftovers(run)
        return self._report(f"KILL to the {killed}", phase, moment, took, run, problems)

    def _measured_tour(self):
        while True:
            start = time.monotonic()
            run = Run(self._script, self._next_folder(), "tour")
            code = run.wait(None)
            length = time.monotonic() - start
            problems = self._leftovers(run)
            run.clean_up()
            if code or problems:
                sys.exit(f"an undisturbed tour: exit code {code}, {problems}\n{run.said()}")
            if "Nothing needed building" in run.said():
                return length

    def _run_until_moment(self, phase):
        """A run that is still going on at a random moment, and the moment."""
        while True:
            longest = self._tour_length if phase in ("tour", "window") else 1.5
            moment = self._random.uniform(0, longest)
            run = Run(self._script, self._next_folder(), phase)
            start = time.monotonic()
            if run.wait(moment) is None:
                return run, moment
            if phase == "tour":  # the measured one may have been slow
                self._tour_length = time.monotonic() - start
            run.clean_up()

    def _next_folder(self):
        return self._folder / f"run-{os.getpid()}-{next(self._numbers)}"

    @staticmethod
    def _wait_until_gone(run, start):
        while (run.processes() or run.files()) and time.monotonic() - start < LIMIT:
            time.sleep(0.02)

    @staticmethod
    def _leftovers(run):
        problems = [f"process {pid} ({name}) is left" for pid, name in run.processes().items()]
        return problems + [f"{name} is left" for name in run.files()]

    @staticmethod
    def _report(what, phase, moment, took, run, problems):
        run.clean_up()
        print(
            f"{'FAIL' if problems else 'ok  '}  {what}, {phase}, after {moment:.2f} s:"
            f" {took:.2f} s {'; '.join(problems)}",
            flush=True,
        )
        if problems:
            print(run.said(), flush=True)
        return bool(problems)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("project")
    parser.add_argument("--interrupts", type=int, default=8)
    parser.add_argument("--kills", type=int, default=6)
    parser.add_argument("--seed", type=int, default=random.randrange(1000000))
    parser.add_argument("--only", choices=sorted(set(PHASES)))
    options = parser.parse_args()

    # Ignored signals stay ignored in what is started, and a shell's background jobs ignore this one.
    signal.signal(signal.SIGINT, signal.default_int_handler)
    with tempfile.TemporaryDirectory() as folder:
        test = Test(f"{options.project}/scripts/run", pathlib.Path(folder), options.seed)
        phases = [options.only] if options.only else PHASES
        failures = 0
        for index in range(options.interrupts):
            failures += test.interrupt(index, phases[index % len(phases)])
        for index in range(options.kills):
            failures += test.kill(index, phases[-1 - index % len(phases)])
    print(f"{options.interrupts} interrupts, {options.kills} kills, {failures} failed")
    return failures > 0


if __name__ == "__main__":
    sys.exit(main())
