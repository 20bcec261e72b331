"""The whole module by key presses alone; the accessibility bus only tells what has the focus."""

import unittest

import pyatspi
from window import CONTROLS, LISTS, SWITCHES, TEST_LIMIT, WindowTest, has_state, name_of

BEFORE_THE_PAGE = ["Search settings", "Settings", "Theme", "Assistive Tools"]


def wait_until_active(tree):
    """Waits until the window with its first page takes keys."""
    tree.control(pyatspi.ROLE_LABEL, "Assistive Tools, Desktop AI Assistant")
    window = tree.control(pyatspi.ROLE_FRAME, "Desktop AI Assistant – Control Center")
    tree.wait_for(lambda: has_state(window, pyatspi.STATE_ACTIVE), "active window")


class KeyboardTest(WindowTest):
    """What people do who use no mouse."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        wait_until_active(cls.tree)

    @classmethod
    def tearDownClass(cls):
        cls.desktop.press(cls.desktop.display.closing_key)
        code = cls.desktop.wait_for_end(cls.window)
        if code != 0:
            raise AssertionError(f"closed, the window ends with {code}: {cls.desktop.window_log()}")

    def wait_for_focus(self, name):
        """Waits until the focus is on what is called NAME."""
        self.tree.wait_for(lambda: self.tree.focus == name, f"focus on {name!r}")

    def press(self, *keys, then):
        """Presses KEYS and waits until the focus comes to what is called THEN."""
        self.tree.focus = None
        self.desktop.press(*keys)
        self.wait_for_focus(then)

    def search(self, text):
        """Goes to the search field by its shortcut and types TEXT."""
        self.desktop.press("ctrl+f")
        self.tree.wait_for(
            lambda: has_state(
                self.tree.find(pyatspi.ROLE_TEXT, "Search settings"), pyatspi.STATE_FOCUSED
            ),
            "focus on the search field",
        )
        self.desktop.type(text)
        self.tree.control(pyatspi.ROLE_LIST, "Search results")

    def open(self, page):
        """Opens PAGE by searching for it; the focus comes to the module's list."""
        self.search(page)
        self.press("Return", then="Assistive Tools")
        self.tree.control(pyatspi.ROLE_LABEL, f"Assistive Tools, {page}")

    def go_to(self, page, control):
        """Opens PAGE and goes to its control by Tab."""
        self.open(page)
        controls = CONTROLS[page]
        for stop in controls[: controls.index(control) + 1]:
            self.press("Tab", then=stop)

    def open_popup(self):
        """Opens the popup of the list that has the focus."""
        self.tree.focus = None
        self.desktop.press("space")
        self.tree.wait_for(lambda: self.tree.focus is not None, "popup")

    def close_popup(self, label, move, close):
        """Goes to another entry with one key and closes it with another; the focus follows each."""
        self.tree.focus = None
        self.desktop.press(move)
        self.tree.wait_for(lambda: self.tree.focus is not None, "entry")
        self.press(close, then=label)

    def looks(self, part):
        """The picture of a control and of what may be drawn around it."""
        area = part.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        return self.desktop.picture(area.x - 4, area.y - 4, area.width + 8, area.height + 8)

    def test_1_first_tab_leads_to_the_search(self):
        """Nothing is chosen when the window opens."""
        self.press("Tab", then="Search settings")

    def test_tab_goes_round_in_reading_order(self):
        """And Shift+Tab goes the same way back."""
        for page, controls in CONTROLS.items():
            stops = BEFORE_THE_PAGE + controls
            with self.subTest(page):
                self.open(page)
                self.press("ctrl+f", then="Search settings")
                for stop in stops[1:]:
                    self.press("Tab", then=stop)
                self.press("Tab", then=stops[0])
                for stop in reversed(stops):
                    self.press("shift+Tab", then=stop)

    def test_focus_is_visible(self):
        """Every control of every page looks different while it has the focus."""
        for page, controls in CONTROLS.items():
            self.open(page)
            for control, following in zip(controls, [*controls[1:], "Search settings"]):
                with self.subTest(page=page, control=control):
                    self.press("Tab", then=control)
                    part = self.tree.wait_for(self.tree.focused, "focus")
                    focused = self.looks(part)
                    self.press("Tab", then=following)
                    self.tree.wait_for(
                        lambda part=part, focused=focused: self.looks(part) != focused,
                        f"focus mark on {control}",
                    )
                    self.press("shift+Tab", then=control)

    def test_arrows_open_the_next_page(self):
        """In the module's list; at its ends they stay."""
        pages = list(CONTROLS)
        self.open(pages[0])
        for page in pages[1:]:
            self.press("Down", then=page)
            self.tree.control(pyatspi.ROLE_LABEL, f"Assistive Tools, {page}")
        self.desktop.press("Down")
        for page in reversed(pages[:-1]):
            self.press("Up", then=page)
            self.tree.control(pyatspi.ROLE_LABEL, f"Assistive Tools, {page}")

    def test_window_list_opens_its_entries(self):
        """Away from the module and back; the focus stays in the window's list."""
        self.open("Translation")
        self.press("ctrl+f", then="Search settings")
        self.press("Tab", then="Settings")
        self.press("Up", then="Shortcuts")
        self.tree.control(pyatspi.ROLE_LABEL, "Shortcuts")
        self.desktop.press("Down")
        self.tree.control(pyatspi.ROLE_LABEL, "Assistive Tools, Desktop AI Assistant")
        self.press("Down", then="Services")
        self.press("Up", "Up", then="Shortcuts")

    def test_search_leads_to_a_control(self):
        """The second result is chosen with an arrow; Escape empties the field."""
        self.search("voice gender")
        self.desktop.press("Return")
        self.wait_for_focus("Voice Gender")
        self.search("nothing like this")
        self.desktop.press("Escape")
        self.tree.wait_for(
            lambda: not self.tree.find(pyatspi.ROLE_LABEL, "Nothing found"), "closed search"
        )

    def test_space_and_enter_flip_switches(self):
        """Each switch there and back."""
        for page, title, service, key, _ in SWITCHES:
            with self.subTest(page=page, title=title):
                self.go_to(page, title)
                was = self.desktop.value(service, key)
                other = "false" if was == "true" else "true"
                self.desktop.press("space")
                self.wait_for_value(service, key, other)
                self.desktop.press("Return")
                self.wait_for_value(service, key, was)

    def test_one_shot_is_reached_once_wakeup_is_on(self):
        """A check box that can be operated is a stop of its own."""
        self.go_to("Desktop AI Assistant", "Voice Wakeup")
        self.desktop.press("space")
        self.tree.wait_for(
            lambda: has_state(
                self.tree.find(pyatspi.ROLE_CHECK_BOX, "OneShot"), pyatspi.STATE_ENABLED
            ),
            "check box that can be operated",
        )
        self.press("Tab", then="OneShot")
        self.desktop.press("space")
        self.wait_for_value("assistant", "wakeup.oneshot", "true")
        self.press("shift+Tab", then="Voice Wakeup")
        self.desktop.press("space")
        self.wait_for_value("assistant", "wakeup.oneshot", "false")

    def test_lists_choose_by_arrows_and_by_their_popup(self):
        """Each entry is reached; the popup is opened with Space and left with Enter or Escape."""
        for page, label, key, entries in LISTS:
            values = [value for _, value in entries]
            with self.subTest(page=page):
                self.go_to(page, label)
                self.desktop.press("Home")
                for value in values[1:]:
                    self.desktop.press("Down")
                    self.wait_for_value("assistant", key, value)
                for value in reversed(values[:-1]):
                    self.open_popup()
                    self.close_popup(label, "Up", "Return")
                    self.wait_for_value("assistant", key, value)
                self.open_popup()
                self.close_popup(label, "Down", "Escape")
                self.press("shift+Tab", then=CONTROLS[page][CONTROLS[page].index(label) - 1])
                self.assertEqual(self.desktop.value("assistant", key), values[0])

    def test_voice_test_runs_and_is_cancelled(self):
        """The focus stays with the control that does the next thing, as it does at a test's own end."""
        self.desktop.choose_microphone("speech")
        self.go_to("Desktop AI Assistant", "Click here to test")
        for start, cancel in (("space", "Escape"), ("Return", "space")):
            self.press(start, then="Microphone level")
            self.press(cancel, then="Click here to test")
            self.assertIsNone(self.tree.find(pyatspi.ROLE_ANIMATION, "Microphone level"))

    def test_focus_stays_where_it_is_when_a_test_ends_by_itself(self):
        """Whoever has gone on to another control meanwhile is left there, and may come back."""
        self.desktop.choose_microphone("silence")
        self.go_to("Desktop AI Assistant", "Click here to test")
        self.press("space", then="Microphone level")
        self.press("shift+Tab", then="Show in the Dock")
        self.tree.wait_for(
            lambda: self.tree.find(pyatspi.ROLE_PUSH_BUTTON, "Click here to test again"),
            "end of the test",
            TEST_LIMIT,
        )
        self.assertEqual(name_of(self.tree.focused()), "Show in the Dock")
        self.press("Tab", then="Click here to test again")
        self.press("space", then="Microphone level")
        self.press("Escape", then="Click here to test")


if __name__ == "__main__":
    unittest.main(verbosity=2)
