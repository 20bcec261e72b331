#!/usr/bin/python3
"""What the documents name exists: files, commands with their options, targets, and names in the code; and a
test runs each command.

    documents.py PROJECT
"""

import pathlib
import re
import subprocess
import sys
import unittest

project = pathlib.Path(sys.argv.pop(1))
folders = ("bench", "bus", "cmake", "contracts", "debian", "doctor", "pages", "platform", "plugin", "proxy",
           "sandbox", "scripts", "tests", "translations", "voice")
documents = sorted(path for pattern in ("*.md", "docs/*.md", "platform/*.md", "sandbox/*/*.md")
                   for path in project.glob(pattern))
manual_pages = sorted([*project.glob("doctor/*.1"), *project.glob("sandbox/*.1")])
# Where each command is run: the file, and how it is written there if not as in the document.
runs = {
    "scripts/run": ("tests/e2e/scriptrun.py", 'Run(script, folder / "first", "window"'),
    "scripts/run --help": ("tests/unit/scripts.sh", '"$run" --help'),
    "scripts/run --tour DIR --locale L": ("tests/e2e/scriptrun.py", '"--tour", pictures, "--locale"'),
    "scripts/test": ("tests/unit/scripts.sh", 'runs "scripts/test" dev'),
    "scripts/test -L gui": ("tests/unit/scripts.sh",),
    "scripts/test --preset asan": ("tests/unit/scripts.sh",),
    "scripts/test -R voicetestpanel": ("tests/unit/scripts.sh",),
    "scripts/test -L realtime": ("tests/unit/scripts.sh", 'runs "scripts/test -L realtime" dev'),
    "scripts/test -L weekly": ("tests/unit/scripts.sh", 'runs "scripts/test -L weekly" dev'),
    "scripts/test -L realtime --repeat until-fail:20": ("tests/unit/scripts.sh",),
    "scripts/test --coverage": ("tests/unit/scripts.sh",),
    "scripts/test --mutants --sample 300 --seed 2": ("tests/unit/scripts.sh",),
    "scripts/test --fuzz 20s": ("tests/unit/scripts.sh",),
    "scripts/test --fuzz 10000000 recogniser level": ("tests/unit/scripts.sh",),
    "cmake -S . -B build/module -DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_BUILD_TYPE=Release -DBUILD_SANDBOX=OFF "
    "-DBUILD_TESTING=OFF": ("tests/plugin/systemplatform",),
    "cmake --build build/module": ("tests/plugin/systemplatform",),
    "cmake --install build/module": ("tests/plugin/systemplatform",),
    "cmake -S . -B build/system -DZDE_PLATFORM=system": ("tests/plugin/systemplatform",),
    "cmake --install build/release --component platform --prefix PREFIX": ("tests/plugin/systemplatform",),
    "cmake --install build/release --component platform-development --prefix PREFIX":
        ("tests/plugin/systemplatform",),
    "cmake --install build/release --component module":
        ("tests/plugin/install.sh", 'cmake --install build/release --component "$1"'),
    "cmake --install build/release --component sandbox --prefix PREFIX":
        ("tests/plugin/install.sh", 'cmake --install build/release --component "$1" --prefix'),
    "cmake --build build/dev --target format": ("tests/e2e/scriptrun.py",),
    "cmake --build build/dev --target check": (".ci/run", "cmake --build build/asan --target check"),
    "cmake --build build/dev --target update-contract": ("tests/plugin/systemplatform",),
    "cmake --build build/dev --target update-translations": ("tests/plugin/systemplatform",),
    "tests/support/with-buses PROGRAM": ("tests/CMakeLists.txt", "/tests/support/with-buses"),
    "tests/support/with-buses build/dev/tests/gui/pages FUNCTION":
        ("tests/gui/CMakeLists.txt", '/tests/support/with-buses" $<TARGET_FILE:pages> '),
    "tests/e2e/scriptinterrupts.py . --interrupts 100 --kills 20 --seed 1":
        ("tests/e2e/CMakeLists.txt", '/scriptinterrupts.py" "${PROJECT_SOURCE_DIR}"'),
    "sandbox/microphone/start KIND DIR": ("tests/unit/scripts.sh", '/sandbox/microphone/start" none "$work'),
    "sandbox-aiservice --record DIR": ("tests/bus/aiservicesessions.cpp",),
    "sandbox-control dock set hidden true": ("tests/bus/services/sandboxcontrol.cpp",),
    "sandbox-control assistant list": ("tests/bus/services/sandboxcontrol.cpp",),
    "sandbox-control assistant script getIatEnable delay 3000": ("tests/bus/services/sandboxcontrol.cpp",),
    "sandbox-control assistant calls": ("tests/bus/services/sandboxcontrol.cpp",),
    "sandbox-control assistant fault slow 3000": ("tests/bus/services/sandboxcontrol.cpp",),
    "sandbox-control --help": ("tests/bus/services/sandboxcontrol.cpp",),
    "assistant-control-doctor [--plugin FILE] [--listen] [--session] [--json]":
        ("tests/plugin/install.sh", '/usr/bin/assistant-control-doctor"'),
    "assistant-control-doctor --contract": ("tests/bus/doctorprogram.cpp", 'runDoctor({"--contract"})'),
    "assistant-control-doctor --failures": ("tests/bus/doctorprogram.cpp", 'runDoctor({"--failures"})'),
    "assistant-control-doctor --contract|--failures|--help|--version":
        ("tests/bus/doctorprogram.cpp", 'runDoctor({"--version"})'),
    "assistant-sandbox [option]...": ("tests/e2e/packages", "as_person assistant-sandbox --tour"),
    "tests/e2e/packages build/packages": ("scripts/package", '/tests/e2e/packages" "$output"'),
    "apt-get install cmake g++ qtbase5-dev qtmultimedia5-dev qttools5-dev":
        ("scripts/portability", "/^    apt-get install/,/^    cmake --install/p"),
}
# Those that take too long for a test. When each was last run stands in a table of docs/packaging.md, but for
# the first: it runs the tests.
long_runs = (".ci/run", "scripts/package", "scripts/package --test",
             "scripts/portability clang c++20 lto conversion",
             "scripts/portability --folder DIR bullseye trixie arm64",
             "dpkg-buildpackage --build=binary --build-profiles=pkg.assistant-control-plugin.desktop")
# What others define (the language, Qt, its test library), and examples.
foreign = re.compile(r"Q[A-Z_]\w*|Qt\w*|std::.*|true|false|null|[A-Z]+|apt-get|ctest|git"
                     r"|(m_)?camel\w+|CamelCase|[Ff]oo(Test)?|\w+-\d\.wav")


def code():
    """All text of the project but its documents."""
    files = [path for folder in folders for path in (project / folder).rglob("*")]
    files += [*project.glob("CMake*"), project / ".ci/run", project / ".clang-format"]
    return "\n".join(path.read_text(errors="replace") for path in files
                     if path.is_file() and path.suffix not in (".md", ".png", ".wav"))


def prose(document):
    """A document without its code blocks."""
    return re.sub(r"```.*?```|^    [^\n]*$", "", document.read_text(), flags=re.S | re.M)


def commands(document):
    """The lines of indented blocks, without what they are for, and what is called in the text."""
    blocks = re.findall(r"^    (\S.*)$", re.sub(r"```.*?```", "", document.read_text(), flags=re.S), re.M)
    called = re.findall(r"`((?:cmake|convert|(?:assistant|sandbox)-[\w-]+|[\w.]+/[\w./-]+) [^`]+)`",
                        prose(document))
    return [re.split(r"\s+#|\s{2,}", line)[0] for line in blocks] + called


def synopses(page):
    """The commands that a manual page shows first."""
    text = re.search(r"\.SH SYNOPSIS\n(.*?)\n\.SH", page.read_text(), re.S)[1].replace("\\-", "-")
    lines = re.sub(r"^\.[BIR]+ ", "", text, flags=re.M).split(".br\n")
    return [re.sub(r"\s+", " ", re.sub(r" ?([][|]) ?", r"\1", line)).strip() for line in lines]


class Documents(unittest.TestCase):
    def each(self, find):
        """Calls find(document, fault) with each document; fails with all faults."""
        self.assertTrue(documents)
        faults = []
        for document in documents:
            find(document, lambda text, name=document.name: faults.append(f"{name}: {text}"))
        self.assertEqual(faults, [])

    def test_links_lead_somewhere(self):
        def find(document, fault):
            for target in re.findall(r"\]\(([^)#:]+)[^):]*\)", document.read_text()):
                if not (document.parent / target).exists():
                    fault(f"link to {target}")
        self.each(find)

    def test_files_exist(self):
        def find(document, fault):
            for name in re.findall(r"`([\w.-]+/[\w./*-]*)[^`]*`", prose(document)):
                inside = name.split("/")[0] in folders + ("docs", ".ci")
                example = "NAME" in name or "INTERFACE" in name
                if inside and not example and not any(project.glob(name.rstrip("/"))):
                    fault(name)
        self.each(find)

    def test_names_are_those_of_the_code(self):
        text = code()
        known = set(re.findall(r"[\w.-]*\w", text)) | set(re.findall(r"\w+", text))
        known.update(f"sandbox-{folder.name}" for folder in project.glob("sandbox/services/*/"))

        def find(document, fault):
            for name in re.findall(r"`([A-Za-z_][\w.:-]*)(?:\(\))?`", prose(document)):
                parts = [name] if name in known else re.split(r"::|\.", name)
                if not foreign.fullmatch(name) and not all(part in known for part in parts):
                    fault(name)
        self.each(find)

    def test_commands_can_be_called(self):
        text = code()

        def find(document, fault):
            for line in commands(document):
                program, *words = line.split()
                if "/" in program and not (project / program).is_file():
                    fault(f"program {program}")
                for option in re.findall(r"(?<=\s)--[a-z][a-z-]*", line):
                    # scripts/test hands what it does not know to ctest.
                    if "/" in program and program != "scripts/test" and option not in text:
                        fault(f"{program} {option}")
                if "--target" in words:
                    target = words[words.index("--target") + 1]
                    if not re.search(rf"(add_custom_target|assistant_add_tool)\({target}\b", text):
                        fault(f"target {target}")
                if "-L" in words and words[words.index("-L") + 1] not in text:
                    fault(f"label in {line}")
        self.each(find)

    def test_each_command_is_run(self):
        named = {command for document in documents for command in commands(document)}
        named.update(command for page in manual_pages for command in synopses(page))
        self.assertEqual(sorted(named), sorted([*runs, *long_runs]))
        for command, (file, *text) in runs.items():
            written = text[0] if text else command
            lines = re.sub(r"\s*\\?\n\s*", " ", (project / file).read_text())
            self.assertTrue(written in lines, f"{file} does not run {written}")

    def test_version_is_the_same_everywhere(self):
        version = re.search(r"\n    VERSION ([\d.]+)\n", (project / "CMakeLists.txt").read_text())[1]
        self.assertIn(f"\n## {version}\n", (project / "CHANGELOG.md").read_text())
        self.assertIn(f"({version})", (project / "debian/changelog").read_text().splitlines()[0])

    def test_packages_depend_on_what_the_sandbox_runs_on(self):
        lists = (project / "scripts/lib/packages.sh").read_text()
        needed = re.search(r'packages_run="(.*?)"', lists, re.S)[1]
        control = re.findall(r"[\w.+-]+", (project / "debian/control").read_text())
        self.assertEqual([name for name in needed.split() if name not in control], [])

    def test_packages_are_built_from_what_is_installed_for_it(self):
        lists = (project / "scripts/lib/packages.sh").read_text()
        control = (project / "debian/control").read_text()
        needed = re.findall(r"^ ([\w.+-]+)", re.search(r"Build-Depends:(.*?)\n\n", control, re.S)[1], re.M)
        known = re.findall(r"[\w.+-]+", lists) + ["debhelper-compat"]
        self.assertEqual([name for name in [*needed, "build-essential"] if name not in known], [])

    def test_help_names_every_option_of_the_first_command(self):
        help_text = subprocess.run([project / "scripts/run", "--help"], capture_output=True, text=True,
                                   check=True).stdout
        for document in documents:
            for option in re.findall(r"scripts/run\b.*?(--[a-z-]+)", document.read_text()):
                self.assertTrue(option == "--help" or option in help_text, f"{document.name}: {option}")


if __name__ == "__main__":
    unittest.main()
