#!/usr/bin/python3
"""What the documents name exists: files, commands with their options, targets, and names in the code.

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
documents = sorted([*project.glob("*.md"), *project.glob("docs/*.md"), *project.glob("platform/*.md")])
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
    """The lines of indented blocks, without what they are for."""
    blocks = re.findall(r"^    (\S.*)$", re.sub(r"```.*?```", "", document.read_text(), flags=re.S), re.M)
    return [re.split(r"\s+#|\s{3,}", line)[0] for line in blocks]


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
                if inside and "NAME" not in name and not any(project.glob(name.rstrip("/"))):
                    fault(name)
        self.each(find)

    def test_names_are_those_of_the_code(self):
        text = code()
        known = set(re.findall(r"[\w.-]*\w", text)) | set(re.findall(r"\w+", text))

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

    def test_version_is_the_same_everywhere(self):
        version = re.search(r"\n    VERSION ([\d.]+)\n", (project / "CMakeLists.txt").read_text())[1]
        self.assertIn(f"\n## {version}\n", (project / "CHANGELOG.md").read_text())
        self.assertIn(f"({version})", (project / "debian/changelog").read_text().splitlines()[0])

    def test_packages_depend_on_what_the_sandbox_runs_on(self):
        lists = (project / "scripts/lib/packages.sh").read_text()
        needed = re.search(r'packages_run="(.*?)"', lists, re.S)[1]
        control = re.findall(r"[\w.+-]+", (project / "debian/control").read_text())
        self.assertEqual([name for name in needed.split() if name not in control], [])

    def test_help_names_every_option_of_the_first_command(self):
        help_text = subprocess.run([project / "scripts/run", "--help"], capture_output=True, text=True,
                                   check=True).stdout
        for document in documents:
            for option in re.findall(r"scripts/run\b.*?(--[a-z-]+)", document.read_text()):
                self.assertTrue(option == "--help" or option in help_text, f"{document.name}: {option}")


if __name__ == "__main__":
    unittest.main()
