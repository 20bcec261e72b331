"""What Orca says while somebody uses the module and the window by keyboard."""

import unittest

from desktop import Desktop
from speech import Speech

PHRASE = '现在请说"阿岚，帮我预约明天早上10点的视频会议"'
WORDS = "阿岚帮我预约明天早上10点的视频会议"

# Longer texts first. What Orca adds, such as roles, stays English.
CHINESE = {
    "Press Space or Escape to cancel the test": "按空格键或 Esc 键取消测试",
    "Click here to test again": "点击此处重新测试",
    "Click here to test": "点击此处开始测试",
    "Assistive Tools": "辅助工具",
    "Control Center": "控制中心",
    "Microphone level": "麦克风输入电平",
    "Nothing found": "无搜索结果",
    "It sounds good": "声音很清晰",
    "Search settings": "搜索设置",
    "Speech to Text": "语音转文字",
    "Language": "语言",
    "Settings": "设置",
    "English": "英语",
    "Theme": "主题",
}


class ScreenReaderTest(unittest.TestCase):
    """Each test has a window of its own, with the focus where a new window has it."""

    locale = "en_US"
    translations = {}

    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(microphone="speech")
        cls.addClassCleanup(cls.desktop.end)
        cls.speech = Speech(cls.desktop.speech_socket())
        cls.addClassCleanup(cls.speech.close)
        cls.desktop.start_screen_reader()
        cls.says(cls, "Screen reader on.")

    def setUp(self):
        self.speech.clear()
        # Qt warns of slow screen readers.
        window = self.desktop.open_window(locale=self.locale, warnings_are_fatal=False)
        self.said = []
        self.says("Control Center frame.")
        self.addCleanup(self.desktop.wait_for_end, window)
        self.addCleanup(self.desktop.press, "ctrl+q")

    def says(self, *texts):
        """Waits until Orca has said all of TEXTS, in their order."""
        for text, translated in self.translations.items():
            texts = [said.replace(text, translated) for said in texts]
        if not self.speech.wait_for(*texts):
            raise AssertionError(f"{texts} were not said, but {self.speech.texts()}")

    def press(self, key, *texts):
        """Presses a key and waits for what is said of it."""
        self.said += self.speech.texts()
        self.speech.clear()
        self.desktop.press(key)
        self.says(*texts)

    def test_every_control_and_what_becomes_of_it(self):
        """Title, role and state with the focus, and each change when it happens."""
        self.press("Tab", "Search settings text.")
        self.press("Tab", "Settings.", "List with")
        self.press("Tab", "Theme push button.")
        self.press("Tab", "Assistive Tools.", "List with 4 items.")
        self.press("Down", "Speech to Text.")
        self.press("Tab", "Speech to Text check box checked.")
        self.press("space", "not checked")
        self.press("space", "checked")
        self.press("Tab", "Language combo box.", "中文-普通话")
        self.press("Down", "English")
        self.press("Up", "中文-普通话")
        self.press("space", "List with 2 items.")
        self.press("Down", "English")
        self.press("Return", "Language combo box.", "English")
        self.press("Up", "中文-普通话")
        self.assertEqual([said for said in self.said if "layered pane" in said], [])

    def test_voice_test(self):
        """What to say, the words as they are recognised, and the verdict, once."""
        for key in ("Tab", "Tab", "Tab", "Tab"):
            self.press(key, ".")
        for key in ("Tab", "Tab", "Tab"):
            self.press(key, "box")
        self.press("Tab", "Click here to test push button.")
        self.press("space", "Microphone level.", PHRASE, "Press Space or Escape to cancel the test")
        verdict = self.translations.get("It sounds good", "It sounds good")
        self.says(WORDS, "Click here to test again push button.", verdict)
        said = " ".join(self.speech.texts())
        self.assertEqual(said.count(verdict), 1, said)

    def test_search(self):
        """The chosen result, and that there is none."""
        self.press("ctrl+f", "Search settings text.")
        self.desktop.type("zzz")
        self.says("Nothing found")


class ChineseScreenReaderTest(ScreenReaderTest):
    """The same in Chinese."""

    locale = "zh_CN"
    translations = CHINESE


if __name__ == "__main__":
    unittest.main(verbosity=2)
