<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en">
<context>
    <name>AssistantSettingWidget</name>
    <message>
        <source>Hello, Alani. What&apos;s the weather like in Beijing?</source>
        <translation>Hello, Alani. What&apos;s the weather like in Beijing?</translation>
    </message>
    <message>
        <source>Say &quot;Hello, Alani&quot; to wake up AI Assistant</source>
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
        <translation>OneShot</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>中文-普通话</source>
        <translation>中文-普通话</translation>
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
        <source>Click here to test</source>
        <translation>Click here to test</translation>
    </message>
    <message>
        <source>Network unavailable</source>
        <translation>Network unavailable</translation>
    </message>
    <message>
        <source>Service exception</source>
        <translation>Service exception</translation>
    </message>
    <message>
        <source>Click here to test again</source>
        <translation>Click here to test again</translation>
    </message>
    <message>
        <source>It sounds good</source>
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
        <translation>Too many noises</translation>
    </message>
    <message>
        <source>No sound recorded</source>
        <translation>No sound recorded</translation>
    </message>
</context>
<context>
    <name>KeyLabel</name>
    <message>
        <source>None</source>
        <translation>None</translation>
    </message>
</context>
<context>
    <name>ShortcutItem</name>
    <message>
        <source>Enter a new shortcut</source>
        <translation>Enter a new shortcut</translation>
    </message>
</context>
<context>
    <name>TavrenAIAssitantControlPlugin</name>
    <message>
        <source>Assistive Tools</source>
        <translation>Assistive Tools</translation>
    </message>
    <message>
        <source>Desktop AI Assistant</source>
        <translation>Desktop AI Assistant</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>Text to Speech</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>Speech to Text</translation>
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
</context>
<context>
    <name>TextTranslateSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Translation&quot; in the context menu to translate the selected text.</source>
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
        <translation>CN-EN</translation>
    </message>
    <message>
        <source>EN-CN</source>
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
</context>
<context>
    <name>VoiceIatSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Speech to Text&quot; in the context menu to convert your speech to text.</source>
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
        <translation>中文-普通话</translation>
    </message>
    <message>
        <source>English</source>
        <translation>English</translation>
    </message>
</context>
<context>
    <name>VoiceTTSSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Text to Speech&quot; in the context menu to read the selected text out.</source>
        <translation>Press the shortcuts (%1) or click &quot;Text to Speech&quot; in the context menu to read the selected text out.</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>Text to Speech</translation>
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
        <source>Female</source>
        <translation>Female</translation>
    </message>
    <message>
        <source>Male</source>
        <translation>Male</translation>
    </message>
    <message>
        <source>Children</source>
        <translation>Children</translation>
    </message>
</context>
</TS>
