<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_HK" sourcelanguage="en">
<context>
    <name>AssistantSettingWidget</name>
    <message>
        <source>Hello, Alani. What&apos;s the weather like in Beijing?</source>
        <extracomment>What to say while the wake-up word and a command go in one sentence.</extracomment>
        <translation>你好，阿嵐，北京天氣如何？</translation>
    </message>
    <message>
        <source>Say &quot;Hello, Alani&quot; to wake up AI Assistant</source>
        <extracomment>The quoted words are what the user says aloud.</extracomment>
        <translation>說出「你好，阿嵐」即可喚醒智能助理</translation>
    </message>
    <message>
        <source>AI Assistant boosts your productivity by executing voice commands, such as checking the weather, creating events, etc.</source>
        <translation>智能助理可執行你的語音指令，例如查詢天氣、建立行程等，助你提升工作效率。</translation>
    </message>
    <message>
        <source>Voice Wakeup</source>
        <translation>語音喚醒</translation>
    </message>
    <message>
        <source>OneShot</source>
        <extracomment>Check box: say the wake-up word and the command in one sentence, without a pause.</extracomment>
        <translation>一次過說出喚醒詞及指令</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>語言</translation>
    </message>
    <message>
        <source>中文-普通话</source>
        <extracomment>Name of a spoken language: Mandarin Chinese.</extracomment>
        <translation>中文-普通話</translation>
    </message>
    <message>
        <source>Show in the Dock</source>
        <extracomment>Switch: the assistant&apos;s icon in the desktop&apos;s dock (taskbar).</extracomment>
        <translation>於工作列顯示</translation>
    </message>
    <message>
        <source>Click here to test</source>
        <translation>按此開始測試</translation>
    </message>
    <message>
        <source>Microphone level</source>
        <extracomment>Read out for the moving wave, which shows how loud the microphone hears the user.</extracomment>
        <translation>咪高峰輸入音量</translation>
    </message>
    <message>
        <source>Press Space or Escape to cancel the test</source>
        <translation>按空格鍵或 Esc 鍵取消測試</translation>
    </message>
    <message>
        <source>Service exception</source>
        <extracomment>Result of the voice test: the AI service could not start it.</extracomment>
        <translation>服務出現異常</translation>
    </message>
    <message>
        <source>Click here to test again</source>
        <translation>按此重新測試</translation>
    </message>
    <message>
        <source>Voice Test</source>
        <extracomment>Title of the microphone test.</extracomment>
        <translation>語音測試</translation>
    </message>
    <message>
        <source>Network unavailable</source>
        <extracomment>Result of the voice test: it needs the network.</extracomment>
        <translation>網絡無法使用</translation>
    </message>
    <message>
        <source>It sounds good</source>
        <extracomment>Result of the voice test: the recording is clear.</extracomment>
        <translation>聲音清晰</translation>
    </message>
    <message>
        <source>Turn down the input volume and try again</source>
        <translation>請調低輸入音量後再試</translation>
    </message>
    <message>
        <source>Turn up the input volume and try again</source>
        <translation>請調高輸入音量後再試</translation>
    </message>
    <message>
        <source>Too many noises</source>
        <extracomment>Result of the voice test: it is too noisy around the user.</extracomment>
        <translation>噪音太大</translation>
    </message>
    <message>
        <source>No sound recorded</source>
        <translation>未能錄到聲音</translation>
    </message>
    <message>
        <source>Click to cancel the test</source>
        <translation>按此取消測試</translation>
    </message>
</context>
<context>
    <name>KeyLabel</name>
    <message>
        <source>None</source>
        <extracomment>On a key cap: no key is set.</extracomment>
        <translation>無</translation>
    </message>
</context>
<context>
    <name>ShortcutItem</name>
    <message>
        <source>Edit</source>
        <extracomment>Name of a button that has only an icon: the user wants to change this shortcut.</extracomment>
        <translation>編輯</translation>
    </message>
    <message>
        <source>Remove</source>
        <extracomment>Name of a button that has only an icon: the user wants to remove this shortcut.</extracomment>
        <translation>移除</translation>
    </message>
    <message>
        <source>Enter a new shortcut</source>
        <translation>請輸入新的快捷鍵</translation>
    </message>
    <message>
        <source>Edit the shortcut for “%1”</source>
        <extracomment>Name of a button that has only an icon, in the row of this shortcut.</extracomment>
        <translation>編輯「%1」的快捷鍵</translation>
    </message>
    <message>
        <source>Remove the shortcut for “%1”</source>
        <extracomment>Name of a button that has only an icon, in the row of this shortcut.</extracomment>
        <translation>移除「%1」的快捷鍵</translation>
    </message>
</context>
<context>
    <name>TavrenAIAssitantControlPlugin</name>
    <message>
        <source>Desktop AI Assistant</source>
        <translation>桌面智能助理</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>語音轉文字</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>文字轉語音</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>翻譯</translation>
    </message>
    <message>
        <source>Voice Wakeup</source>
        <translation>語音喚醒</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>語言</translation>
    </message>
    <message>
        <source>Show in the Dock</source>
        <translation>於工作列顯示</translation>
    </message>
    <message>
        <source>Voice Test</source>
        <translation>語音測試</translation>
    </message>
    <message>
        <source>Show Speech Widget</source>
        <translation>顯示語音懸浮視窗</translation>
    </message>
    <message>
        <source>Voice Gender</source>
        <translation>聲線</translation>
    </message>
    <message>
        <source>Assistive Tools</source>
        <extracomment>The module&apos;s name in the control center&apos;s navigation.</extracomment>
        <translation>輔助工具</translation>
    </message>
</context>
<context>
    <name>TextTranslateSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Translation&quot; in the context menu to translate the selected text.</source>
        <extracomment>%1 is a key combination such as Ctrl+Alt+T; the quoted text is this page&apos;s title.</extracomment>
        <translation>按快捷鍵（%1）或按右鍵選單中的「翻譯」，即可翻譯所選文字。</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>翻譯</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>語言</translation>
    </message>
    <message>
        <source>CN-EN</source>
        <extracomment>Direction of translation: from Chinese into English.</extracomment>
        <translation>中譯英</translation>
    </message>
    <message>
        <source>EN-CN</source>
        <extracomment>Direction of translation: from English into Chinese.</extracomment>
        <translation>英譯中</translation>
    </message>
</context>
<context>
    <name>ThirdListWidget</name>
    <message>
        <source>Desktop AI Assistant</source>
        <translation>桌面智能助理</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>語音轉文字</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>文字轉語音</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>翻譯</translation>
    </message>
    <message>
        <source>Assistive Tools</source>
        <translation>輔助工具</translation>
    </message>
</context>
<context>
    <name>VoiceIatSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Speech to Text&quot; in the context menu to convert your speech to text.</source>
        <extracomment>%1 is a key combination such as Ctrl+Alt+T; the quoted text is this page&apos;s title.</extracomment>
        <translation>按快捷鍵（%1）或按右鍵選單中的「語音轉文字」，即可將你說的話轉為文字。</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>語音轉文字</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>語言</translation>
    </message>
    <message>
        <source>中文-普通话</source>
        <extracomment>Name of a spoken language: Mandarin Chinese.</extracomment>
        <translation>中文-普通話</translation>
    </message>
    <message>
        <source>English</source>
        <extracomment>Name of a spoken language.</extracomment>
        <translation>英文</translation>
    </message>
</context>
<context>
    <name>VoiceTTSSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Text to Speech&quot; in the context menu to read the selected text out.</source>
        <extracomment>%1 is a key combination such as Ctrl+Alt+T; the quoted text is this page&apos;s title.</extracomment>
        <translation>按快捷鍵（%1）或按右鍵選單中的「文字轉語音」，即可朗讀所選文字。</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>文字轉語音</translation>
    </message>
    <message>
        <source>Show Speech Widget</source>
        <extracomment>Switch: the small floating window that is there while text is read aloud.</extracomment>
        <translation>顯示語音懸浮視窗</translation>
    </message>
    <message>
        <source>Voice Gender</source>
        <extracomment>Title of a list of voices: woman, man, child.</extracomment>
        <translation>聲線</translation>
    </message>
    <message>
        <source>Female</source>
        <extracomment>A woman&apos;s voice.</extracomment>
        <translation>女聲</translation>
    </message>
    <message>
        <source>Male</source>
        <extracomment>A man&apos;s voice.</extracomment>
        <translation>男聲</translation>
    </message>
    <message>
        <source>Children</source>
        <extracomment>A child&apos;s voice.</extracomment>
        <translation>童聲</translation>
    </message>
</context>
</TS>
