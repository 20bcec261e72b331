"""The whole module through the accessibility bus alone: no key is pressed, no mouse is moved."""

import contextlib
import os
import unittest

import pyatspi
from window import (
    CONTROL_ROLES,
    CONTROLS,
    LISTS,
    ROLES_WITHOUT_MEANING,
    SWITCHES,
    TEST_LIMIT,
    WindowTest,
    has_state,
    name_of,
    press,
)


# The lists of the drawer, in reading order: services, surroundings, appearance, calls.
WORLD = ["Assistant", "Dock icon", "Shortcuts", "AI service", "Sound", "Network"]
WORLD += ["Microphone", "Connection", "Icon in the dock"]
WORLD += ["Theme", "Language", "Text size", "Direction", "Calls to"]


class AccessibilityTest(WindowTest):
    """What people do who cannot see the window."""

    def open(self, page):
        """Chooses PAGE in the module's list and waits for its heading."""
        modules = self.tree.control(pyatspi.ROLE_LIST, "Assistive Tools")
        row = self.tree.control(pyatspi.ROLE_LIST_ITEM, page, modules)
        if not has_state(row, pyatspi.STATE_SELECTED):
            press(row, "Toggle")
        self.tree.control(pyatspi.ROLE_LABEL, f"Assistive Tools, {page}")

    def start_voice_test(self):
        """Opens the assistant's page and presses the link."""
        self.open("Desktop AI Assistant")
        link = self.tree.wait_for(
            lambda: self.tree.find(pyatspi.ROLE_PUSH_BUTTON, "Click here to test")
            or self.tree.find(pyatspi.ROLE_PUSH_BUTTON, "Click here to test again"),
            "link to the voice test",
        )
        link.queryComponent().grabFocus()
        self.tree.clear()
        press(link, "Press")

    def choose_theme(self, name):
        """Opens the list of the themes and chooses one."""
        button = self.tree.control(pyatspi.ROLE_PUSH_BUTTON, "Theme")
        press(button, "ShowMenu")
        press(self.tree.control(pyatspi.ROLE_MENU_ITEM, name, button), "Press")

    def choose(self, label, text, within=None):
        """Opens the list that is called LABEL and chooses TEXT."""
        box = self.tree.control(pyatspi.ROLE_COMBO_BOX, label, within)
        press(box, "ShowMenu")
        press(self.tree.control(pyatspi.ROLE_LIST_ITEM, text, box), "Toggle")
        self.tree.wait_for(lambda: box.clear_cache() or box.name == text, text)
        return box

    def open_entry(self, name):
        """Chooses NAME in the window's own list."""
        entries = self.tree.control(pyatspi.ROLE_LIST, "Settings")
        press(self.tree.control(pyatspi.ROLE_LIST_ITEM, name, entries), "Toggle")

    def open_world(self):
        """Opens the drawer from the page of services."""
        self.open_entry("Services")
        press(self.tree.control(pyatspi.ROLE_PUSH_BUTTON, "World"), "Press")
        self.addCleanup(self.open_entry, "Assistive Tools")
        self.addCleanup(
            lambda: press(self.tree.control(pyatspi.ROLE_PUSH_BUTTON, "Close"), "Press")
        )
        return self.tree.control(pyatspi.ROLE_PANEL, "World")

    def open_ends(self):
        """The sockets and pipes of the window's process; each has a number of its own."""
        links = set()
        for name in os.listdir(f"/proc/{self.window.pid}/fd"):
            with contextlib.suppress(FileNotFoundError):  # closed meanwhile
                links.add(os.readlink(f"/proc/{self.window.pid}/fd/{name}"))
        return {link for link in links if link.startswith(("socket:", "pipe:"))}

    def is_dark(self):
        """Whether the window's background is: below the page, near the lower edge."""
        window = next(part for part in self.tree.parts() if part.getRole() == pyatspi.ROLE_FRAME)
        area = window.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        (pixel,) = self.desktop.picture(area.x + area.width - 30, area.y + area.height - 30, 1, 1)
        return max(pixel[:3]) < 80

    def test_window_has_a_heading_and_parts_in_reading_order(self):
        """Side bar, heading, list and page come in the order in which people read the window."""
        self.open("Translation")
        order = [
            (pyatspi.ROLE_FRAME, "Translation – Control Center"),
            (pyatspi.ROLE_TEXT, "Search settings"),
            (pyatspi.ROLE_LIST, "Settings"),
            (pyatspi.ROLE_LABEL, "Assistive Tools, Translation"),
            (pyatspi.ROLE_PUSH_BUTTON, "Theme"),
            (pyatspi.ROLE_LIST, "Assistive Tools"),
            (pyatspi.ROLE_CHECK_BOX, "Translation"),
            (pyatspi.ROLE_COMBO_BOX, "Language"),
        ]
        parts = [(part.getRole(), name_of(part)) for part in self.tree.parts()]
        self.assertEqual([part for part in parts if part in order], order)

    def test_every_page_opens_by_name(self):
        """There and back through the list, and once by way of another entry of the window."""
        for page in (*CONTROLS, *reversed(CONTROLS)):
            with self.subTest(page):
                self.open(page)
        self.open_entry("Shortcuts")
        self.tree.control(pyatspi.ROLE_LABEL, "Shortcuts")
        self.open_entry("Assistive Tools")
        self.tree.control(pyatspi.ROLE_LABEL, "Assistive Tools, Desktop AI Assistant")

    def test_every_control_has_a_name_and_a_role(self):
        """Also what takes the focus and is no control by its role."""
        for page in CONTROLS:
            self.open(page)
            controls = 0
            for part in self.tree.parts():
                focusable = has_state(part, pyatspi.STATE_FOCUSABLE)
                if not focusable and part.getRole() not in CONTROL_ROLES:
                    continue
                if part.parent.getRole() == pyatspi.ROLE_COMBO_BOX:
                    continue  # the list of a closed combo box, which has the box's name
                with self.subTest(page=page, part=str(part)):
                    self.assertTrue(name_of(part))
                    self.assertNotIn(part.getRole(), ROLES_WITHOUT_MEANING)
                controls += 1
            self.assertGreater(controls, 4)

    def test_search_opens_a_page_and_leads_to_the_control(self):
        """What is typed and chosen through the bus does what keys and clicks do."""
        field = self.tree.control(pyatspi.ROLE_TEXT, "Search settings")
        field.queryEditableText().setTextContents("speech")
        results = self.tree.control(pyatspi.ROLE_LIST, "Search results")
        # The first result is chosen already, for Enter.
        found = "Show Speech Widget, Assistive Tools › Text to Speech"
        press(self.tree.control(pyatspi.ROLE_LIST_ITEM, found, results), "Toggle")
        self.tree.control(pyatspi.ROLE_LABEL, "Assistive Tools, Text to Speech")
        self.tree.wait_for(
            lambda: name_of(self.tree.focused()) == "Show Speech Widget",
            "focus on the control found",
        )

    def test_switches_change_the_services(self):
        """Each switch is a check box named by its title, and flips its service there and back."""
        for page, title, service, key, on in SWITCHES:
            with self.subTest(page=page, title=title):
                self.open(page)
                off = "false" if on == "true" else "true"
                switch = self.tree.control(pyatspi.ROLE_CHECK_BOX, title)
                was_on = has_state(switch, pyatspi.STATE_CHECKED)
                self.assertEqual(self.desktop.value(service, key), on if was_on else off)
                for now_on in (not was_on, was_on):
                    press(switch, "Toggle")
                    self.wait_for_value(service, key, on if now_on else off)
                    switch.clear_cache()
                    self.assertEqual(has_state(switch, pyatspi.STATE_CHECKED), now_on)

    def test_one_shot_depends_on_the_wakeup(self):
        """The check box below a switch can be operated while the switch is on, and only then."""
        self.open("Desktop AI Assistant")
        wakeup = self.tree.control(pyatspi.ROLE_CHECK_BOX, "Voice Wakeup")
        self.assertFalse(has_state(wakeup, pyatspi.STATE_CHECKED))
        one_shot = self.tree.control(pyatspi.ROLE_CHECK_BOX, "OneShot")
        self.assertFalse(has_state(one_shot, pyatspi.STATE_ENABLED))
        press(wakeup, "Toggle")
        one_shot = self.tree.wait_for(
            lambda: has_state(
                self.tree.find(pyatspi.ROLE_CHECK_BOX, "OneShot"), pyatspi.STATE_ENABLED
            )
            and self.tree.find(pyatspi.ROLE_CHECK_BOX, "OneShot"),
            "check box that can be operated",
        )
        press(one_shot, "Toggle")
        self.wait_for_value("assistant", "wakeup.oneshot", "true")
        press(wakeup, "Toggle")
        self.wait_for_value("assistant", "wakeup.oneshot", "false")
        self.wait_for_value("assistant", "wakeup.enabled", "false")

    def test_lists_change_the_services(self):
        """Each combo box is named by its row's label; every entry can be chosen."""
        for page, label, key, entries in LISTS:
            self.open(page)
            for text, value in (*entries[1:], entries[0]):  # the first one is chosen already
                with self.subTest(page=page, entry=text):
                    self.choose(label, text)
                    self.wait_for_value("assistant", key, value)

    def test_world_is_steered_in_the_drawer(self):
        """Lists are known by their rows' labels; what is chosen comes about, and calls are read."""
        self.open("Desktop AI Assistant")  # which asks the dock
        drawer = self.open_world()
        self.tree.wait_for(
            lambda: WORLD
            == [
                name_of(part)
                for part in self.tree.parts(drawer)
                if part.getRole() == pyatspi.ROLE_COMBO_BOX
            ],
            f"lists {WORLD}",
        )
        for text, value in (("Hidden", "true"), ("Shown", "false")):
            self.choose("Icon in the dock", text, drawer)
            self.wait_for_value("dock", "hidden", value)
        card = self.tree.control(pyatspi.ROLE_PANEL, "Dock icon")
        for fault, state in (("Stopped", "Not running"), ("Running", "Running")):
            box = self.choose("Dock icon", fault, drawer)
            self.tree.wait_for(
                lambda state=state: card.clear_cache() or card.description == state, state
            )
            self.assertEqual("Show in the Dock" in box.description, fault != "Running")

        self.choose("Calls to", "Dock icon", drawer)
        calls = self.tree.control(pyatspi.ROLE_LIST, "Calls", drawer)
        rows = [part.name for part in self.tree.parts(calls)][1:]
        self.assertTrue(rows)
        self.assertEqual([row for row in rows if ", Dock icon, " not in row], [])
        self.choose("Calls to", "All services", drawer)

    def test_another_language_begins_the_window_again(self):
        """In the same process and place, with the drawer open; nothing of the old one is left."""
        drawer = self.open_world()
        for label, language, locale, title, drawer_name, focus in (
            ("Language", "简体中文", "zh_CN", "服务 – 控制中心", "运行环境", "语言"),
            ("语言", "English (US)", "en_US", "Services – Control Center", "World", "Language"),
        ):
            before = self.open_ends()
            self.tree.focus = None
            box = self.tree.control(pyatspi.ROLE_COMBO_BOX, label, drawer)
            press(box, "ShowMenu")
            press(self.tree.control(pyatspi.ROLE_LIST_ITEM, language, box), "Toggle")
            self.tree.wait_for(
                lambda title=title: self.tree.attach()
                and self.tree.find(pyatspi.ROLE_FRAME, title),
                title,
            )
            drawer = self.tree.control(pyatspi.ROLE_PANEL, drawer_name)
            self.tree.wait_for(lambda focus=focus: self.tree.focus == focus, f"focus on {focus}")
            self.assertIsNone(self.window.poll())
            with open(f"/proc/{self.window.pid}/cmdline", encoding="utf-8") as file:
                self.assertIn(f"--locale={locale}", file.read().split("\0"))
            self.assertEqual(before & self.open_ends(), set())

    def test_voice_test_announces_words_and_verdict(self):
        """From the link to the verdict; the focus goes along and never leaves the panel."""
        self.desktop.choose_microphone("speech")
        self.start_voice_test()
        wave = self.tree.control(pyatspi.ROLE_ANIMATION, "Microphone level")
        self.assertTrue(has_state(wave, pyatspi.STATE_FOCUSED))
        self.assertTrue(wave.description.startswith("现在请说"), wave.description)
        self.assertIn("Escape", wave.description)
        panel = [part.name for part in self.tree.parts(wave.parent)][1:]
        self.assertEqual([panel[0], panel[-1]], ["Voice Test", "Microphone level"])
        self.assertTrue(panel[2].startswith("现在请说"), panel)

        again = self.tree.wait_for(
            lambda: self.tree.find(pyatspi.ROLE_PUSH_BUTTON, "Click here to test again"),
            "end of the test",
            TEST_LIMIT,
        )
        self.assertIn("It sounds good", self.tree.texts())
        self.assertTrue(has_state(again, pyatspi.STATE_FOCUSED))
        self.assertEqual(again.description, "It sounds good")
        words = [
            name
            for event, name, role in self.tree.announced
            if event.startswith("object:property-change:accessible-name")
            and role == pyatspi.ROLE_LABEL
            and "明天" in name
            and "现在请说" not in name
        ]
        self.assertGreater(len(words), 1, self.tree.announced)
        self.assertIn(words[-1], self.tree.texts())
        self.assertTrue(self.tree.heard("object:state-changed:showing", "It sounds good"))
        elsewhere = [
            name
            for event, name, _ in self.tree.announced
            if event.startswith("object:state-changed:focused")
            and name not in ("Click here to test", "Microphone level", "Click here to test again")
        ]
        self.assertEqual(elsewhere, [])

    def test_voice_test_is_cancelled_by_pressing_the_wave(self):
        """The recording ends, and the panel is back at its beginning."""
        self.desktop.reset("aiservice")
        self.start_voice_test()
        wave = self.tree.control(pyatspi.ROLE_ANIMATION, "Microphone level")
        press(wave, "Press")
        link = self.tree.control(pyatspi.ROLE_PUSH_BUTTON, "Click here to test")
        self.assertTrue(has_state(link, pyatspi.STATE_FOCUSED))
        for call in ("stopAqc", "stopIat"):
            self.tree.wait_for(lambda call=call: self.desktop.calls("aiservice", call), call)

    def test_theme_is_switched_while_a_voice_test_runs(self):
        """The window changes its colours, and the test goes on."""
        self.tree.wait_for(lambda: not self.is_dark(), "light window")
        self.start_voice_test()
        wave = self.tree.control(pyatspi.ROLE_ANIMATION, "Microphone level")
        self.choose_theme("Dark")
        self.addCleanup(self.choose_theme, "Light")
        self.tree.wait_for(self.is_dark, "dark window")
        self.assertTrue(has_state(wave, pyatspi.STATE_SHOWING))
        press(wave, "Press")
        self.tree.control(pyatspi.ROLE_PUSH_BUTTON, "Click here to test")

    def test_voice_test_without_network_says_so(self):
        """The verdict comes at once and is read out with the link that has the focus."""
        self.desktop.set_value("networkmanager", "state", "20")
        self.addCleanup(self.desktop.set_value, "networkmanager", "state", "70")
        self.start_voice_test()
        self.tree.wait_for(
            lambda: "Network unavailable" in self.tree.texts(), "verdict about the network"
        )
        again = self.tree.control(pyatspi.ROLE_PUSH_BUTTON, "Click here to test again")
        self.assertTrue(has_state(again, pyatspi.STATE_FOCUSED))
        self.assertEqual(again.description, "Network unavailable")

    def test_a_page_follows_its_service(self):
        """What another program changes is announced by the check box."""
        self.open("Desktop AI Assistant")
        dock = self.tree.control(pyatspi.ROLE_CHECK_BOX, "Show in the Dock")
        self.assertTrue(has_state(dock, pyatspi.STATE_CHECKED))
        self.desktop.set_value("dock", "hidden", "true")
        self.addCleanup(self.desktop.set_value, "dock", "hidden", "false")
        self.tree.wait_for(
            lambda: not has_state(
                self.tree.find(pyatspi.ROLE_CHECK_BOX, "Show in the Dock"), pyatspi.STATE_CHECKED
            ),
            "unchecked switch",
        )


if __name__ == "__main__":
    os.environ.setdefault("LC_ALL", "C.UTF-8")
    unittest.main(verbosity=2)
