"""The control center's window, as assistive technologies see it, and what is on the module's pages."""

import time
import unittest

import gi

gi.require_version("Atspi", "2.0")
import pyatspi  # noqa: E402 (needs the version)
from desktop import Desktop  # noqa: E402
from gi.repository import GLib  # noqa: E402

LIMIT = 30  # seconds, on a loaded machine
TEST_LIMIT = 40  # a voice test takes ten, and a loaded machine may add to it

# What Tab leads to on each page, in reading order.
CONTROLS = {
    "Desktop AI Assistant": ["Voice Wakeup", "Language", "Show in the Dock", "Click here to test"],
    "Speech to Text": ["Speech to Text", "Language"],
    "Text to Speech": ["Text to Speech", "Show Speech Widget", "Voice Gender"],
    "Translation": ["Translation", "Language"],
}

# page, title of the switch, service and key that it changes, what "on" is there
SWITCHES = (
    ("Desktop AI Assistant", "Voice Wakeup", "assistant", "wakeup.enabled", "true"),
    ("Desktop AI Assistant", "Show in the Dock", "dock", "hidden", "false"),
    ("Speech to Text", "Speech to Text", "assistant", "iat.enabled", "true"),
    ("Text to Speech", "Text to Speech", "assistant", "tts.enabled", "true"),
    ("Text to Speech", "Show Speech Widget", "assistant", "tts.window", "true"),
    ("Translation", "Translation", "assistant", "trans.enabled", "true"),
)

# page, label of the list, key in the service "assistant", and the entries: text and value
LISTS = (
    (
        "Speech to Text",
        "Language",
        "iat.language",
        (("中文-普通话", "zh_cn"), ("English", "en_us")),
    ),
    (
        "Text to Speech",
        "Voice Gender",
        "tts.speaker",
        (("Female", "x_tovali"), ("Male", "x_morven"), ("Children", "x2_pella")),
    ),
    ("Translation", "Language", "trans.language", (("CN-EN", "cn|en"), ("EN-CN", "en|cn"))),
)

CONTROL_ROLES = {
    pyatspi.ROLE_CHECK_BOX,
    pyatspi.ROLE_COMBO_BOX,
    pyatspi.ROLE_LINK,
    pyatspi.ROLE_LIST,
    pyatspi.ROLE_LIST_ITEM,
    pyatspi.ROLE_PUSH_BUTTON,
    pyatspi.ROLE_TEXT,
    pyatspi.ROLE_ANIMATION,
}

# The roles that Qt gives to widgets without one of their own, and to a bare frame.
ROLES_WITHOUT_MEANING = {pyatspi.ROLE_FILLER, pyatspi.ROLE_UNKNOWN, pyatspi.ROLE_INVALID}

EVENTS = (
    "object:property-change:accessible-name",
    "object:property-change:accessible-description",
    "object:state-changed:focused",
    "object:state-changed:showing",
)


def name_of(accessible):
    """How assistive technologies call it: by its label, if it has one, as combo boxes have."""
    for relation in accessible.getRelationSet():
        if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY:
            return relation.getTarget(0).name
    return accessible.name


def has_state(accessible, state):
    """Whether it is, for instance, pyatspi.STATE_CHECKED."""
    return accessible.getState().contains(state)


def press(accessible, *names):
    """Does the first action that has one of NAMES."""
    action = accessible.queryAction()
    offered = [action.getName(index) for index in range(action.nActions)]
    for name in names:
        if name in offered:
            action.doAction(offered.index(name))
            return
    raise AssertionError(f"{accessible} offers {offered}, not {names}")


class Tree:
    """The tree of the program PROGRAM, which may still be starting, and what it announces.

    Everything is asked of the program afresh each time: nothing is kept from one look to the next.
    """

    def __init__(self, program):
        self.announced = []  # (event, name, role) since the last clear()
        self.focus = None  # name of what got the keyboard focus last
        for event in EVENTS:
            pyatspi.Registry.registerEventListener(self._keep, event)
        GLib.timeout_add(50, lambda: True)  # how often a condition is looked at without any event
        self._program = program
        self._application = None
        self.wait_for(lambda: self.attach() and self._application.childCount > 0, "a window")

    def wait_for(self, condition, what, limit=LIMIT):
        """Waits, taking in events, until CONDITION() is true, and returns its value."""
        deadline = time.monotonic() + limit
        while True:
            try:
                value = condition()
            except (GLib.Error, LookupError, AttributeError):
                value = None  # a part of the tree that has just gone
            if value:
                return value
            if time.monotonic() > deadline:
                raise AssertionError(
                    f"in {limit} seconds there was no {what}; "
                    f"the focus came to {self.focus!r}\n{self.picture()}"
                )
            GLib.MainContext.default().iteration(True)

    def attach(self):
        """Looks for the program, which may have begun again; whether it is there."""
        desktop = pyatspi.Registry.getDesktop(0)
        desktop.clear_cache()
        for index in range(desktop.childCount):
            application = desktop.getChildAtIndex(index)
            if application is not None and application.name == self._program:
                self._application = application
                return True
        return False

    def parts(self, within=None):
        """Everything that is showing, in the order of the tree."""
        top = within or self._application
        top.clear_cache()
        if has_state(top, pyatspi.STATE_SHOWING):
            yield top
            for index in range(top.childCount):
                child = top.getChildAtIndex(index)
                if child is not None:
                    yield from self.parts(child)

    def find(self, role, name, within=None):
        """The first part with this role and name that is showing; None when there is none."""
        for part in self.parts(within):
            if part.getRole() == role and name_of(part) == name:
                return part
        return None

    def control(self, role, name, within=None):
        """The same, as soon as it is there."""
        what = f"{role!r} called {name!r}"
        return self.wait_for(lambda: self.find(role, name, within), what)

    def focused(self):
        """What has the keyboard focus: its innermost part."""
        found = None
        for part in self.parts():
            if part.getRole() != pyatspi.ROLE_LIST_ITEM and has_state(part, pyatspi.STATE_FOCUSED):
                found = part
        return found

    def texts(self):
        """The names of all labels that are showing."""
        return [part.name for part in self.parts() if part.getRole() == pyatspi.ROLE_LABEL]

    def clear(self):
        """Forgets what was announced."""
        self.announced.clear()

    def heard(self, event, *names):
        """Whether EVENT was announced for something with one of NAMES, or for anything."""
        return any(
            happened.startswith(event) and (not names or name in names)
            for happened, name, _ in self.announced
        )

    def picture(self):
        """The tree as text, for messages."""
        lines = []
        try:
            lines = [f"{part.getRoleName()} {name_of(part)!r}" for part in self.parts()]
        except (GLib.Error, LookupError, AttributeError):
            lines.append("(changing)")
        return "\n".join(lines)

    def _keep(self, event):
        try:
            source = event.source
            source.clear_cache()
            self.announced.append((str(event.type), source.name, source.getRole()))
            if str(event.type) == "object:state-changed:focused" and event.detail1:
                self.focus = name_of(source)
        except (GLib.Error, LookupError, AttributeError):
            pass  # it has gone


class WindowTest(unittest.TestCase):
    """Each test starts where the one before it left the window, as a user would."""

    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(microphone="speech")
        cls.addClassCleanup(cls.desktop.end)
        cls.window = cls.desktop.open_window()
        cls.tree = Tree("control-center")

    def tearDown(self):
        self.assertIsNone(self.window.poll(), self.desktop.window_log())

    def wait_for_value(self, service, key, value):
        """Waits until a service's state has the value."""
        self.tree.wait_for(
            lambda: self.desktop.value(service, key) == value, f"{key} = {value} in {service}"
        )
