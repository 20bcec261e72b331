"""The window on screens of several sizes and scales, and what Qt alone draws on Wayland."""

import unittest

import pyatspi
from desktop import Desktop
from window import CONTROLS, Tree, has_state, name_of, press

USUAL_WIDTH = 1100  # of a window that has room
FRAMES = 8  # at most, on both sides together


def area_of(part):
    """Left, top, right and bottom, in the coordinates of the accessibility bus."""
    area = part.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return area.x, area.y, area.x + area.width, area.y + area.height


def lies_in(inner, outer):
    """Whether an area lies in another one as a whole."""
    return (
        inner[0] >= outer[0]
        and inner[1] >= outer[1]
        and inner[2] <= outer[2]
        and inner[3] <= outer[3]
    )


class DisplayTest(unittest.TestCase):
    """A desktop whose windows are the tests' own."""

    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(microphone="speech")
        cls.addClassCleanup(cls.desktop.end)

    def open(self, *arguments, environment=None):
        """Opens a window until the end of the test; returns its frame."""
        window = self.desktop.open_window(*arguments, environment=environment)
        self.addCleanup(self.desktop.wait_for_end, window)
        self.addCleanup(self.desktop.press, "ctrl+q")
        self.tree = Tree("control-center")
        return self.tree.wait_for(self.active_frame, "active window")

    def active_frame(self):
        """The window that takes keys."""
        for part in self.tree.parts():
            if part.getRole() == pyatspi.ROLE_FRAME and has_state(part, pyatspi.STATE_ACTIVE):
                return part
        return None

    def search(self, text):
        """Opens the first result."""
        self.desktop.press("ctrl+f")
        self.wait_for_focus("Search settings")
        self.desktop.type(text)
        self.tree.control(pyatspi.ROLE_LIST, "Search results")
        self.desktop.press("Return")

    def wait_for_focus(self, name):
        """Waits until the focus is on what is called NAME."""
        self.tree.wait_for(
            lambda: self.tree.focused() and name_of(self.tree.focused()) == name,
            f"focus on {name!r}",
        )


class ScreensTest(DisplayTest):
    """From a small screen with large pixels to a large one with small pixels."""

    def test_everything_can_be_reached(self):
        """The window is on the screen, and whatever Tab leads to is in the window."""
        for screen in self.desktop.display.screens:
            with self.subTest(screen):
                environment = self.desktop.display.use(screen)
                frame = self.open("--page=Desktop AI Assistant", environment=environment)
                window, area = area_of(frame), self.desktop.display.area()
                self.assertTrue(lies_in(window, area), (window, area))
                self.assertGreaterEqual(window[2] - window[0], min(USUAL_WIDTH, area[2] - FRAMES))
                for page, controls in CONTROLS.items():
                    self.go_through(page, controls, frame)
                self.doCleanups()

    def go_through(self, page, controls, frame):
        """Opens a page by searching for it and presses Tab from control to control."""
        self.search(page)
        self.wait_for_focus("Assistive Tools")
        for control in controls:
            self.desktop.press("Tab")
            self.wait_for_focus(control)
            places = area_of(self.tree.focused()), area_of(frame)
            self.assertTrue(lies_in(*places), (page, control, places))


class FrameTest(DisplayTest):
    """Where the compositor neither draws frames nor tells a window where it is."""

    def test_the_frame_follows_the_theme(self):
        """It is Qt's own, and would keep the colours that it began with."""
        self.open("--theme=light")
        self.tree.wait_for(lambda: not self.frame_is_dark(), "light frame")
        for name, dark in (("Dark", True), ("Light", False)):
            self.search("theme")
            press(self.tree.control(pyatspi.ROLE_MENU_ITEM, name), "Press")
            self.desktop.press("Escape")
            self.tree.wait_for(lambda dark=dark: self.frame_is_dark() == dark, f"{name} frame")

    def frame_is_dark(self):
        """Seen at the leading end of its title bar."""
        (pixel,) = self.desktop.picture(40, -15, 1, 1)
        return max(pixel[:3]) < 80

    def test_lists_open_inside_the_window(self):
        """Elsewhere they might be outside of the screen."""
        frame = self.open("--geometry=0,0,500,400", "--page=Text to Speech")
        self.search("voice gender")
        self.wait_for_focus("Voice Gender")
        self.desktop.press("space")
        box = self.tree.control(pyatspi.ROLE_COMBO_BOX, "Voice Gender")
        for text in ("Female", "Male", "Children"):
            entry = self.tree.control(pyatspi.ROLE_LIST_ITEM, text, box)
            places = area_of(entry), area_of(frame)
            self.assertTrue(lies_in(*places), (text, places))
        self.desktop.press("Escape")


if __name__ == "__main__":
    unittest.main(verbosity=2)
