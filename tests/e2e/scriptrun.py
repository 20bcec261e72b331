"""What scripts/run does: the first command of the README, a tour that it refuses, an open window. And what
developers have written for them.

    scriptrun.py PROJECT
"""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from scriptinterrupts import Run

START_LIMIT = 60  # seconds
PAGES = ("desktop-ai-assistant", "speech-to-text", "text-to-speech", "translation")


def wait_for(run, text):
    """Waits until a run has said TEXT."""
    deadline = time.monotonic() + START_LIMIT
    while text not in run.said():
        assert run.wait(0.05) is None, f"ended before it said '{text}':\n{run.said()}"
        assert time.monotonic() < deadline, f"did not say '{text}':\n{run.said()}"


def check_first_command(script, folder):
    """Without a display: it builds what has changed, and leaves a picture of each page in each theme."""
    folder.mkdir()
    environment = os.environ.copy()
    for display in ("DISPLAY", "WAYLAND_DISPLAY"):
        environment.pop(display, None)
    pictures = folder / "tour"
    options = ["--tour", pictures, "--locale", "ug_CN", "--section", "pages"]
    subprocess.run([script, *options], env=environment, check=True)
    for page in PAGES:
        for theme in ("light", "dark"):
            found = list(pictures.glob(f"*-{page}-{theme}.png"))
            assert len(found) == 1 and found[0].stat().st_size > 0, f"{page}, {theme}: {found}"


def check_refusal(script, folder):
    """A tour that would overwrite a picture of somebody else's."""
    pictures = folder / "pictures"
    pictures.mkdir(parents=True)
    (pictures / "01-search.png").touch()
    run = Run(script, folder, "tour")
    try:
        assert run.wait(START_LIMIT) == 2, run.said()
        reason = f"control-center: {pictures}/01-search.png is no picture that a tour has written"
        assert run.said().splitlines()[-1].startswith(reason), run.said()
    finally:
        run.clean_up()


def check_window(script, folder):
    """What it says while its window is open is true; a service is steered, a second window opened."""
    state = folder / "state"
    first = Run(script, folder / "first", "window", "--verbose", state=state)
    second = None
    try:
        wait_for(first, "What changes in the services:")
        said = first.said()
        for text in (
            "Nothing needed building",
            f"Settings: kept in {state}/assistant-sandbox",
            'Microphone: a virtual one, of the kind "speech"',
            "The control center is open. Closing it, or Ctrl+C here, ends everything.",
        ):
            assert text in said, f"does not say '{text}':\n{said}"

        lines = [line for line in said.splitlines() if line.startswith("    ")]
        assert len(lines) == 2 and lines[0].startswith("    export "), said
        subprocess.run(["bash", "-c", "\n".join(lines)], check=True)
        wait_for(first, "dock: hidden -> true")
        wait_for(first, "AssistantSettingWidget")  # a line of the module's log
        noise = [line for line in first.said().splitlines() if "ALSA" in line or "jack" in line.lower()]
        assert not noise, noise

        second = Run(script, folder / "second", "window", state=state)
        wait_for(second, "The control center is open.")
        assert "Settings: this run's own, not kept, because another run uses" in second.said()
        for run in (second, first):
            run.send(signal.SIGTERM, False)
            assert run.wait(5) == 128 + signal.SIGTERM, run.said()
    finally:
        for run in (first, second):
            if run:
                run.clean_up()


def check_format(script, folder):
    """The layout of a source that has lost it, in a copy of the project."""
    project = pathlib.Path(script).parent.parent
    shutil.copytree(project, folder, symlinks=True, ignore=shutil.ignore_patterns("build", "out", ".git"))
    source = folder / "bus/buscalls.cpp"
    layout = source.read_text()
    source.write_text(layout.replace("\n    ", "\n"))
    assert source.read_text() != layout
    options = "-G Ninja -DZDE_PLATFORM=bundled -DBUILD_SANDBOX=OFF -DBUILD_TESTING=OFF"
    for command in (f"cmake -S . -B build/dev {options}", "cmake --build build/dev --target format"):
        subprocess.run(command.split(), cwd=folder, check=True, stdout=subprocess.DEVNULL)
    assert source.read_text() == layout


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as temporary:
        for check in (check_first_command, check_refusal, check_window, check_format):
            check(f"{sys.argv[1]}/scripts/run", pathlib.Path(temporary) / check.__name__)
