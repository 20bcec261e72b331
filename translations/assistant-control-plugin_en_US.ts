<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en">
<context>
    <name>AssistantSettingWidget</name>
    <message>
        <source>Hello, Alani. What&apos;s the weather like in Beijing?</source>
        <extracomment>What to say while the wake-up word and a command go in one sentence.</extracomment>
        <translation>Hello, Alani. What&apos;s the weather like in Beijing?</translation>
    </message>
    <message>
        <source>Say &quot;Hello, Alani&quot; to wake up AI Assistant</source>
        <extracomment>The quoted words are what the user says aloud.</extracomment>
        <translation>Say &quot;Hello, Alani&quot; to wake up AI Assistant</translation>
    </message>
    <message>
        <source>AI Assistant boosts your productivity by executing voice commands, such as checking the weather, creating events, etc.</source>
        <translation>AI Assistant boosts your productivity by executing voice commands, such as checking the weather, creating events, etc.</translation>
    </message>
    <message>
        <source>Voice Wakeup</source>
        <translation>Voice Wakeup</translation>
    </message>
    <message>
        <source>OneShot</source>
        <extracomment>Check box: say the wake-up word and the command in one sentence, without a pause.</extracomment>
        <translation>OneShot</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>中文-普通话</source>
        <extracomment>Name of a spoken language: Mandarin Chinese.</extracomment>
        <translation>中文-普通话</translation>
    </message>
    <message>
        <source>Show in the Dock</source>
        <extracomment>Switch: the assistant&apos;s icon in the desktop&apos;s dock (taskbar).</extracomment>
        <translation>Show in the Dock</translation>
    </message>
    <message>
        <source>Click here to test</source>
        <translation>Click here to test</translation>
    </message>
    <message>
        <source>Microphone level</source>
        <extracomment>Read out for the moving wave, which shows how loud the microphone hears the user.</extracomment>
        <translation>Microphone level</translation>
    </message>
    <message>
        <source>Press Space or Escape to cancel the test</source>
        <translation>Press Space or Escape to cancel the test</translation>
    </message>
    <message>
        <source>Service exception</source>
        <extracomment>Result of the voice test: the AI service could not start it.</extracomment>
        <translation>Service exception</translation>
    </message>
    <message>
        <source>Click here to test again</source>
        <translation>Click here to test again</translation>
    </message>
    <message>
        <source>Voice Test</source>
        <extracomment>Title of the microphone test.</extracomment>
        <translation>Voice Test</translation>
    </message>
    <message>
        <source>Network unavailable</source>
        <extracomment>Result of the voice test: it needs the network.</extracomment>
        <translation>Network unavailable</translation>
    </message>
    <message>
        <source>It sounds good</source>
        <extracomment>Result of the voice test: the recording is clear.</extracomment>
        <translation>It sounds good</translation>
    </message>
    <message>
        <source>Turn down the input volume and try again</source>
        <translation>Turn down the input volume and try again</translation>
    </message>
    <message>
        <source>Turn up the input volume and try again</source>
        <translation>Turn up the input volume and try again</translation>
    </message>
    <message>
        <source>Too many noises</source>
        <extracomment>Result of the voice test: it is too noisy around the user.</extracomment>
        <translation>Too many noises</translation>
    </message>
    <message>
        <source>No sound recorded</source>
        <translation>No sound recorded</translation>
    </message>
    <message>
        <source>Click to cancel the test</source>
        <translation>Click to cancel the test</translation>
    </message>
</context>
<context>
    <name>KeyLabel</name>
    <message>
        <source>None</source>
        <extracomment>On a key cap: no key is set.</extracomment>
        <translation>None</translation>
    </message>
</context>
<context>
    <name>ShortcutItem</name>
    <message>
        <source>Edit</source>
        <extracomment>Name of a button that has only an icon: the user wants to change this shortcut.</extracomment>
        <translation>Edit</translation>
    </message>
    <message>
        <source>Remove</source>
        <extracomment>Name of a button that has only an icon: the user wants to remove this shortcut.</extracomment>
        <translation>Remove</translation>
    </message>
    <message>
        <source>Enter a new shortcut</source>
        <translation>Enter a new shortcut</translation>
    </message>
    <message>
        <source>Edit the shortcut for “%1”</source>
        <extracomment>Name of a button that has only an icon, in the row of this shortcut.</extracomment>
        <translation>Edit the shortcut for “%1”</translation>
    </message>
    <message>
        <source>Remove the shortcut for “%1”</source>
        <extracomment>Name of a button that has only an icon, in the row of this shortcut.</extracomment>
        <translation>Remove the shortcut for “%1”</translation>
    </message>
</context>
<context>
    <name>TavrenAIAssitantControlPlugin</name>
    <message>
        <source>Desktop AI Assistant</source>
        <translation>Desktop AI Assistant</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>Speech to Text</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>Text to Speech</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>Translation</translation>
    </message>
    <message>
        <source>Voice Wakeup</source>
        <translation>Voice Wakeup</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>Show in the Dock</source>
        <translation>Show in the Dock</translation>
    </message>
    <message>
        <source>Voice Test</source>
        <translation>Voice Test</translation>
    </message>
    <message>
        <source>Show Speech Widget</source>
        <translation>Show Speech Widget</translation>
    </message>
    <message>
        <source>Voice Gender</source>
        <translation>Voice Gender</translation>
    </message>
    <message>
        <source>Assistive Tools</source>
        <extracomment>The module&apos;s name in the control center&apos;s navigation.</extracomment>
        <translation>Assistive Tools</translation>
    </message>
</context>
<context>
    <name>TextTranslateSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Translation&quot; in the context menu to translate the selected text.</source>
        <extracomment>%1 is a key combination such as Ctrl+Alt+T; the quoted text is this page&apos;s title.</extracomment>
        <translation>Press the shortcuts (%1) or click &quot;Translation&quot; in the context menu to translate the selected text.</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>Translation</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>CN-EN</source>
        <extracomment>Direction of translation: from Chinese into English.</extracomment>
        <translation>CN-EN</translation>
    </message>
    <message>
        <source>EN-CN</source>
        <extracomment>Direction of translation: from English into Chinese.</extracomment>
        <translation>EN-CN</translation>
    </message>
</context>
<context>
    <name>ThirdListWidget</name>
    <message>
        <source>Desktop AI Assistant</source>
        <translation>Desktop AI Assistant</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>Speech to Text</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>Text to Speech</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>Translation</translation>
    </message>
    <message>
        <source>Assistive Tools</source>
        <translation>Assistive Tools</translation>
    </message>
</context>
<context>
    <name>VoiceIatSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Speech to Text&quot; in the context menu to convert your speech to text.</source>
        <extracomment>%1 is a key combination such as Ctrl+Alt+T; the quoted text is this page&apos;s title.</extracomment>
        <translation>Press the shortcuts (%1) or click &quot;Speech to Text&quot; in the context menu to convert your speech to text.</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>Speech to Text</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>中文-普通话</source>
        <extracomment>Name of a spoken language: Mandarin Chinese.</extracomment>
        <translation>中文-普通话</translation>
    </message>
    <message>
        <source>English</source>
        <extracomment>Name of a spoken language.</extracomment>
        <translation>English</translation>
    </message>
</context>
<context>
    <name>VoiceTTSSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Text to Speech&quot; in the context menu to read the selected text out.</source>
        <extracomment>%1 is a key combination such as Ctrl+Alt+T; the quoted text is this page&apos;s title.</extracomment>
        <translation>Press the shortcuts (%1) or click &quot;Text to Speech&quot; in the context menu to read the selected text out.</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>Text to Speech</translation>
    </message>
    <message>
        <source>Show Speech Widget</source>
        <extracomment>Switch: the small floating window that is there while text is read aloud.</extracomment>
        <translation>Show Speech Widget</translation>
    </message>
    <message>
        <source>Voice Gender</source>
        <extracomment>Title of a list of voices: woman, man, child.</extracomment>
        <translation>Voice Gender</translation>
    </message>
    <message>
        <source>Female</source>
        <extracomment>A woman&apos;s voice.</extracomment>
        <translation>Female</translation>
    </message>
    <message>
        <source>Male</source>
        <extracomment>A man&apos;s voice.</extracomment>
        <translation>Male</translation>
    </message>
    <message>
        <source>Children</source>
        <extracomment>A child&apos;s voice.</extracomment>
        <translation>Children</translation>
    </message>
</context>
</TS>
