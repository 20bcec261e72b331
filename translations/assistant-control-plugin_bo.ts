<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="bo" sourcelanguage="en">
<context>
    <name>AssistantSettingWidget</name>
    <message>
        <source>Hello, Alani. What&apos;s the weather like in Beijing?</source>
        <extracomment>What to say while the wake-up word and a command go in one sentence.</extracomment>
        <translation>བཀྲ་ཤིས་བདེ་ལེགས། ཨ་ལ་ནི། པེ་ཅིན་གྱི་གནམ་གཤིས་ག་འདྲ་རེད།</translation>
    </message>
    <message>
        <source>Say &quot;Hello, Alani&quot; to wake up AI Assistant</source>
        <extracomment>The quoted words are what the user says aloud.</extracomment>
        <translation>“བཀྲ་ཤིས་བདེ་ལེགས། ཨ་ལ་ནི”ཞེས་བཤད་ནས་རིག་ནུས་ལག་རོགས་དཀྲོག་སློང་བྱོས།</translation>
    </message>
    <message>
        <source>AI Assistant boosts your productivity by executing voice commands, such as checking the weather, creating events, etc.</source>
        <translation>རིག་ནུས་ལག་རོགས་ཀྱིས་གནམ་གཤིས་འཚོལ་བ་དང་ལས་རིམ་གསར་འཛུགས་སོགས་ཀྱི་སྐད་སྒྲའི་བཀའ་ལག་བསྟར་བྱས་ནས། ཁྱེད་ཀྱི་ལས་ཀའི་ཕན་ནུས་མཐོ་རུ་གཏོང་ཐུབ།</translation>
    </message>
    <message>
        <source>Voice Wakeup</source>
        <translation>སྐད་སྒྲས་དཀྲོག་སློང</translation>
    </message>
    <message>
        <source>OneShot</source>
        <extracomment>Check box: say the wake-up word and the command in one sentence, without a pause.</extracomment>
        <translation>དཀྲོག་ཚིག་དང་བཀའ་ཐེངས་གཅིག་ལ་བཤད་པ</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>སྐད་ཡིག</translation>
    </message>
    <message>
        <source>中文-普通话</source>
        <extracomment>Name of a spoken language: Mandarin Chinese.</extracomment>
        <translation>རྒྱ་སྐད-སྤྱི་སྐད</translation>
    </message>
    <message>
        <source>Show in the Dock</source>
        <extracomment>Switch: the assistant&apos;s icon in the desktop&apos;s dock (taskbar).</extracomment>
        <translation>ལས་འགན་སྡེ་ཚན་དུ་མངོན་པ</translation>
    </message>
    <message>
        <source>Click here to test</source>
        <translation>འདིར་མནན་ནས་ཚོད་ལྟ་བྱོས།</translation>
    </message>
    <message>
        <source>Microphone level</source>
        <extracomment>Read out for the moving wave, which shows how loud the microphone hears the user.</extracomment>
        <translation>མའེ་ཁེ་ཧྥེང་གི་སྒྲ་ཤུགས</translation>
    </message>
    <message>
        <source>Press Space or Escape to cancel the test</source>
        <translation>སྟོང་མཐེབ་བམ་ Esc མཐེབ་མནན་ནས་ཚོད་ལྟ་མེད་པར་བྱོས།</translation>
    </message>
    <message>
        <source>Service exception</source>
        <extracomment>Result of the voice test: the AI service could not start it.</extracomment>
        <translation>ཞབས་ཞུ་རྒྱུན་ལྡན་མིན་པ།</translation>
    </message>
    <message>
        <source>Click here to test again</source>
        <translation>འདིར་མནན་ནས་ཡང་བསྐྱར་ཚོད་ལྟ་བྱོས།</translation>
    </message>
    <message>
        <source>Voice Test</source>
        <extracomment>Title of the microphone test.</extracomment>
        <translation>སྐད་སྒྲ་ཚོད་ལྟ</translation>
    </message>
    <message>
        <source>Network unavailable</source>
        <extracomment>Result of the voice test: it needs the network.</extracomment>
        <translation>དྲ་རྒྱ་སྤྱོད་མི་རུང་།</translation>
    </message>
    <message>
        <source>It sounds good</source>
        <extracomment>Result of the voice test: the recording is clear.</extracomment>
        <translation>སྐད་སྒྲ་གསལ་པོ་འདུག</translation>
    </message>
    <message>
        <source>Turn down the input volume and try again</source>
        <translation>ནང་འཇུག་སྒྲ་ཤུགས་ཆུང་དུ་བཏང་ནས་ཡང་བསྐྱར་ཚོད་ལྟ་བྱོས།</translation>
    </message>
    <message>
        <source>Turn up the input volume and try again</source>
        <translation>ནང་འཇུག་སྒྲ་ཤུགས་ཆེ་རུ་བཏང་ནས་ཡང་བསྐྱར་ཚོད་ལྟ་བྱོས།</translation>
    </message>
    <message>
        <source>Too many noises</source>
        <extracomment>Result of the voice test: it is too noisy around the user.</extracomment>
        <translation>འུར་སྒྲ་ཆེ་དྲགས་པ།</translation>
    </message>
    <message>
        <source>No sound recorded</source>
        <translation>སྐད་སྒྲ་ཕབ་མ་ཐུབ།</translation>
    </message>
    <message>
        <source>Click to cancel the test</source>
        <translation>མནན་ནས་ཚོད་ལྟ་མེད་པར་བྱོས།</translation>
    </message>
</context>
<context>
    <name>KeyLabel</name>
    <message>
        <source>None</source>
        <extracomment>On a key cap: no key is set.</extracomment>
        <translation>མེད</translation>
    </message>
</context>
<context>
    <name>ShortcutItem</name>
    <message>
        <source>Edit</source>
        <extracomment>Name of a button that has only an icon: the user wants to change this shortcut.</extracomment>
        <translation>རྩོམ་སྒྲིག</translation>
    </message>
    <message>
        <source>Remove</source>
        <extracomment>Name of a button that has only an icon: the user wants to remove this shortcut.</extracomment>
        <translation>མེད་པར་བཟོ་བ</translation>
    </message>
    <message>
        <source>Enter a new shortcut</source>
        <translation>མྱུར་མཐེབ་གསར་བ་ནང་འཇུག་བྱོས།</translation>
    </message>
    <message>
        <source>Edit the shortcut for “%1”</source>
        <extracomment>Name of a button that has only an icon, in the row of this shortcut.</extracomment>
        <translation>“%1”ཞེས་པའི་མྱུར་མཐེབ་རྩོམ་སྒྲིག</translation>
    </message>
    <message>
        <source>Remove the shortcut for “%1”</source>
        <extracomment>Name of a button that has only an icon, in the row of this shortcut.</extracomment>
        <translation>“%1”ཞེས་པའི་མྱུར་མཐེབ་མེད་པར་བཟོ་བ</translation>
    </message>
</context>
<context>
    <name>TavrenAIAssitantControlPlugin</name>
    <message>
        <source>Desktop AI Assistant</source>
        <translation>ཅོག་ངོས་རིག་ནུས་ལག་རོགས</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>སྐད་སྒྲ་ཡི་གེར་བསྒྱུར་བ</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>ཡི་གེ་སྐད་སྒྲར་བསྒྱུར་བ</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>ཡིག་སྒྱུར</translation>
    </message>
    <message>
        <source>Voice Wakeup</source>
        <translation>སྐད་སྒྲས་དཀྲོག་སློང</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>སྐད་ཡིག</translation>
    </message>
    <message>
        <source>Show in the Dock</source>
        <translation>ལས་འགན་སྡེ་ཚན་དུ་མངོན་པ</translation>
    </message>
    <message>
        <source>Voice Test</source>
        <translation>སྐད་སྒྲ་ཚོད་ལྟ</translation>
    </message>
    <message>
        <source>Show Speech Widget</source>
        <translation>སྐད་སྒྲའི་གཡེང་སྒེའུ་མངོན་པ</translation>
    </message>
    <message>
        <source>Voice Gender</source>
        <translation>སྐད་གདངས་ཀྱི་རིགས</translation>
    </message>
    <message>
        <source>Assistive Tools</source>
        <extracomment>The module&apos;s name in the control center&apos;s navigation.</extracomment>
        <translation>རམ་འདེགས་ཡོ་བྱད</translation>
    </message>
</context>
<context>
    <name>TextTranslateSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Translation&quot; in the context menu to translate the selected text.</source>
        <extracomment>%1 is a key combination such as Ctrl+Alt+T; the quoted text is this page&apos;s title.</extracomment>
        <translation>མྱུར་མཐེབ་ (%1) མནན་པའམ་ཡང་ན་གཡས་མཐེབ་འདེམས་བྱང་ནང་གི་“ཡིག་སྒྱུར”མནན་ན། བདམས་པའི་ཡི་གེ་བསྒྱུར་ཐུབ།</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>ཡིག་སྒྱུར</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>སྐད་ཡིག</translation>
    </message>
    <message>
        <source>CN-EN</source>
        <extracomment>Direction of translation: from Chinese into English.</extracomment>
        <translation>རྒྱ་ཡིག་ནས་དབྱིན་ཡིག</translation>
    </message>
    <message>
        <source>EN-CN</source>
        <extracomment>Direction of translation: from English into Chinese.</extracomment>
        <translation>དབྱིན་ཡིག་ནས་རྒྱ་ཡིག</translation>
    </message>
</context>
<context>
    <name>ThirdListWidget</name>
    <message>
        <source>Desktop AI Assistant</source>
        <translation>ཅོག་ངོས་རིག་ནུས་ལག་རོགས</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>སྐད་སྒྲ་ཡི་གེར་བསྒྱུར་བ</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>ཡི་གེ་སྐད་སྒྲར་བསྒྱུར་བ</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>ཡིག་སྒྱུར</translation>
    </message>
    <message>
        <source>Assistive Tools</source>
        <translation>རམ་འདེགས་ཡོ་བྱད</translation>
    </message>
</context>
<context>
    <name>VoiceIatSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Speech to Text&quot; in the context menu to convert your speech to text.</source>
        <extracomment>%1 is a key combination such as Ctrl+Alt+T; the quoted text is this page&apos;s title.</extracomment>
        <translation>མྱུར་མཐེབ་ (%1) མནན་པའམ་ཡང་ན་གཡས་མཐེབ་འདེམས་བྱང་ནང་གི་“སྐད་སྒྲ་ཡི་གེར་བསྒྱུར་བ”མནན་ན། ཁྱེད་ཀྱི་སྐད་སྒྲ་ཡི་གེར་བསྒྱུར་ཐུབ།</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>སྐད་སྒྲ་ཡི་གེར་བསྒྱུར་བ</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>སྐད་ཡིག</translation>
    </message>
    <message>
        <source>中文-普通话</source>
        <extracomment>Name of a spoken language: Mandarin Chinese.</extracomment>
        <translation>རྒྱ་སྐད-སྤྱི་སྐད</translation>
    </message>
    <message>
        <source>English</source>
        <extracomment>Name of a spoken language.</extracomment>
        <translation>དབྱིན་སྐད</translation>
    </message>
</context>
<context>
    <name>VoiceTTSSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Text to Speech&quot; in the context menu to read the selected text out.</source>
        <extracomment>%1 is a key combination such as Ctrl+Alt+T; the quoted text is this page&apos;s title.</extracomment>
        <translation>མྱུར་མཐེབ་ (%1) མནན་པའམ་ཡང་ན་གཡས་མཐེབ་འདེམས་བྱང་ནང་གི་“ཡི་གེ་སྐད་སྒྲར་བསྒྱུར་བ”མནན་ན། བདམས་པའི་ཡི་གེ་ཀློག་འདོན་བྱེད་ཐུབ།</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>ཡི་གེ་སྐད་སྒྲར་བསྒྱུར་བ</translation>
    </message>
    <message>
        <source>Show Speech Widget</source>
        <extracomment>Switch: the small floating window that is there while text is read aloud.</extracomment>
        <translation>སྐད་སྒྲའི་གཡེང་སྒེའུ་མངོན་པ</translation>
    </message>
    <message>
        <source>Voice Gender</source>
        <extracomment>Title of a list of voices: woman, man, child.</extracomment>
        <translation>སྐད་གདངས་ཀྱི་རིགས</translation>
    </message>
    <message>
        <source>Female</source>
        <extracomment>A woman&apos;s voice.</extracomment>
        <translation>བུད་མེད་ཀྱི་སྐད</translation>
    </message>
    <message>
        <source>Male</source>
        <extracomment>A man&apos;s voice.</extracomment>
        <translation>སྐྱེས་པའི་སྐད</translation>
    </message>
    <message>
        <source>Children</source>
        <extracomment>A child&apos;s voice.</extracomment>
        <translation>བྱིས་པའི་སྐད</translation>
    </message>
</context>
</TS>
