<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>AssistantSettingWidget</name>
    <message>
        <source>Hello, Alani. What&apos;s the weather like in Beijing?</source>
        <extracomment>What to say while the wake-up word and a command go in one sentence.</extracomment>
        <translation>你好，阿岚，北京天气怎么样？</translation>
    </message>
    <message>
        <source>Say &quot;Hello, Alani&quot; to wake up AI Assistant</source>
        <extracomment>The quoted words are what the user says aloud.</extracomment>
        <translation>说“你好，阿岚”即可唤醒智能助手</translation>
    </message>
    <message>
        <source>AI Assistant boosts your productivity by executing voice commands, such as checking the weather, creating events, etc.</source>
        <translation>智能助手可以执行您的语音指令，例如查询天气、创建日程等，让您的工作更高效。</translation>
    </message>
    <message>
        <source>Voice Wakeup</source>
        <translation>语音唤醒</translation>
    </message>
    <message>
        <source>OneShot</source>
        <extracomment>Check box: say the wake-up word and the command in one sentence, without a pause.</extracomment>
        <translation>一次说完唤醒词和指令</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>中文-普通话</source>
        <extracomment>Name of a spoken language: Mandarin Chinese.</extracomment>
        <translation>中文-普通话</translation>
    </message>
    <message>
        <source>Show in the Dock</source>
        <extracomment>Switch: the assistant&apos;s icon in the desktop&apos;s dock (taskbar).</extracomment>
        <translation>在任务栏中显示</translation>
    </message>
    <message>
        <source>Click here to test</source>
        <translation>点击此处开始测试</translation>
    </message>
    <message>
        <source>Microphone level</source>
        <extracomment>Read out for the moving wave, which shows how loud the microphone hears the user.</extracomment>
        <translation>麦克风输入电平</translation>
    </message>
    <message>
        <source>Press Space or Escape to cancel the test</source>
        <translation>按空格键或 Esc 键取消测试</translation>
    </message>
    <message>
        <source>Service exception</source>
        <extracomment>Result of the voice test: the AI service could not start it.</extracomment>
        <translation>服务异常</translation>
    </message>
    <message>
        <source>Click here to test again</source>
        <translation>点击此处重新测试</translation>
    </message>
    <message>
        <source>Voice Test</source>
        <extracomment>Title of the microphone test.</extracomment>
        <translation>语音测试</translation>
    </message>
    <message>
        <source>Network unavailable</source>
        <extracomment>Result of the voice test: it needs the network.</extracomment>
        <translation>网络不可用</translation>
    </message>
    <message>
        <source>It sounds good</source>
        <extracomment>Result of the voice test: the recording is clear.</extracomment>
        <translation>声音很清晰</translation>
    </message>
    <message>
        <source>Turn down the input volume and try again</source>
        <translation>请调低输入音量后重试</translation>
    </message>
    <message>
        <source>Turn up the input volume and try again</source>
        <translation>请调高输入音量后重试</translation>
    </message>
    <message>
        <source>Too many noises</source>
        <extracomment>Result of the voice test: it is too noisy around the user.</extracomment>
        <translation>噪音过大</translation>
    </message>
    <message>
        <source>No sound recorded</source>
        <translation>未录到声音</translation>
    </message>
    <message>
        <source>Click to cancel the test</source>
        <translation>点击可取消测试</translation>
    </message>
</context>
<context>
    <name>KeyLabel</name>
    <message>
        <source>None</source>
        <extracomment>On a key cap: no key is set.</extracomment>
        <translation>无</translation>
    </message>
</context>
<context>
    <name>ShortcutItem</name>
    <message>
        <source>Edit</source>
        <extracomment>Name of a button that has only an icon: the user wants to change this shortcut.</extracomment>
        <translation>编辑</translation>
    </message>
    <message>
        <source>Remove</source>
        <extracomment>Name of a button that has only an icon: the user wants to remove this shortcut.</extracomment>
        <translation>移除</translation>
    </message>
    <message>
        <source>Enter a new shortcut</source>
        <translation>请输入新快捷键</translation>
    </message>
    <message>
        <source>Edit the shortcut for “%1”</source>
        <extracomment>Name of a button that has only an icon, in the row of this shortcut.</extracomment>
        <translation>编辑“%1”的快捷键</translation>
    </message>
    <message>
        <source>Remove the shortcut for “%1”</source>
        <extracomment>Name of a button that has only an icon, in the row of this shortcut.</extracomment>
        <translation>移除“%1”的快捷键</translation>
    </message>
</context>
<context>
    <name>TavrenAIAssitantControlPlugin</name>
    <message>
        <source>Desktop AI Assistant</source>
        <translation>桌面智能助手</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>语音转文字</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>文字转语音</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>翻译</translation>
    </message>
    <message>
        <source>Voice Wakeup</source>
        <translation>语音唤醒</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Show in the Dock</source>
        <translation>在任务栏中显示</translation>
    </message>
    <message>
        <source>Voice Test</source>
        <translation>语音测试</translation>
    </message>
    <message>
        <source>Show Speech Widget</source>
        <translation>显示语音悬浮窗</translation>
    </message>
    <message>
        <source>Voice Gender</source>
        <translation>声音类型</translation>
    </message>
    <message>
        <source>Assistive Tools</source>
        <extracomment>The module&apos;s name in the control center&apos;s navigation.</extracomment>
        <translation>辅助工具</translation>
    </message>
</context>
<context>
    <name>TextTranslateSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Translation&quot; in the context menu to translate the selected text.</source>
        <extracomment>%1 is a key combination such as Ctrl+Alt+T; the quoted text is this page&apos;s title.</extracomment>
        <translation>按快捷键（%1）或点击右键菜单中的“翻译”，即可翻译选中的文字。</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>翻译</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>CN-EN</source>
        <extracomment>Direction of translation: from Chinese into English.</extracomment>
        <translation>中译英</translation>
    </message>
    <message>
        <source>EN-CN</source>
        <extracomment>Direction of translation: from English into Chinese.</extracomment>
        <translation>英译中</translation>
    </message>
</context>
<context>
    <name>ThirdListWidget</name>
    <message>
        <source>Desktop AI Assistant</source>
        <translation>桌面智能助手</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>语音转文字</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>文字转语音</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>翻译</translation>
    </message>
    <message>
        <source>Assistive Tools</source>
        <translation>辅助工具</translation>
    </message>
</context>
<context>
    <name>VoiceIatSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Speech to Text&quot; in the context menu to convert your speech to text.</source>
        <extracomment>%1 is a key combination such as Ctrl+Alt+T; the quoted text is this page&apos;s title.</extracomment>
        <translation>按快捷键（%1）或点击右键菜单中的“语音转文字”，即可将您说的话转换为文字。</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>语音转文字</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>中文-普通话</source>
        <extracomment>Name of a spoken language: Mandarin Chinese.</extracomment>
        <translation>中文-普通话</translation>
    </message>
    <message>
        <source>English</source>
        <extracomment>Name of a spoken language.</extracomment>
        <translation>英语</translation>
    </message>
</context>
<context>
    <name>VoiceTTSSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Text to Speech&quot; in the context menu to read the selected text out.</source>
        <extracomment>%1 is a key combination such as Ctrl+Alt+T; the quoted text is this page&apos;s title.</extracomment>
        <translation>按快捷键（%1）或点击右键菜单中的“文字转语音”，即可朗读选中的文字。</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>文字转语音</translation>
    </message>
    <message>
        <source>Show Speech Widget</source>
        <extracomment>Switch: the small floating window that is there while text is read aloud.</extracomment>
        <translation>显示语音悬浮窗</translation>
    </message>
    <message>
        <source>Voice Gender</source>
        <extracomment>Title of a list of voices: woman, man, child.</extracomment>
        <translation>声音类型</translation>
    </message>
    <message>
        <source>Female</source>
        <extracomment>A woman&apos;s voice.</extracomment>
        <translation>女声</translation>
    </message>
    <message>
        <source>Male</source>
        <extracomment>A man&apos;s voice.</extracomment>
        <translation>男声</translation>
    </message>
    <message>
        <source>Children</source>
        <extracomment>A child&apos;s voice.</extracomment>
        <translation>童声</translation>
    </message>
</context>
</TS>
