<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ug" sourcelanguage="en">
<context>
    <name>AssistantSettingWidget</name>
    <message>
        <source>Hello, Alani. What&apos;s the weather like in Beijing?</source>
        <extracomment>What to say while the wake-up word and a command go in one sentence.</extracomment>
        <translation>ياخشىمۇسىز، ئالانى. بېيجىڭنىڭ ھاۋاسى قانداق؟</translation>
    </message>
    <message>
        <source>Say &quot;Hello, Alani&quot; to wake up AI Assistant</source>
        <extracomment>The quoted words are what the user says aloud.</extracomment>
        <translation>«ياخشىمۇسىز، ئالانى» دېسىڭىز ئەقلىي ياردەمچى ئويغىنىدۇ</translation>
    </message>
    <message>
        <source>AI Assistant boosts your productivity by executing voice commands, such as checking the weather, creating events, etc.</source>
        <translation>ئەقلىي ياردەمچى ھاۋارايىنى سۈرۈشتۈرۈش، كۈنتەرتىپ قۇرۇش قاتارلىق ئاۋازلىق بۇيرۇقلارنى ئىجرا قىلىپ، خىزمەت ئۈنۈمىڭىزنى ئۆستۈرىدۇ.</translation>
    </message>
    <message>
        <source>Voice Wakeup</source>
        <translation>ئاۋاز بىلەن ئويغىتىش</translation>
    </message>
    <message>
        <source>OneShot</source>
        <extracomment>Check box: say the wake-up word and the command in one sentence, without a pause.</extracomment>
        <translation>ئويغىتىش سۆزى بىلەن بۇيرۇقنى بىراقلا ئېيتىش</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>تىل</translation>
    </message>
    <message>
        <source>中文-普通话</source>
        <extracomment>Name of a spoken language: Mandarin Chinese.</extracomment>
        <translation>خەنزۇچە-ئورتاق تىل</translation>
    </message>
    <message>
        <source>Show in the Dock</source>
        <extracomment>Switch: the assistant&apos;s icon in the desktop&apos;s dock (taskbar).</extracomment>
        <translation>ۋەزىپە بالدىقىدا كۆرسىتىش</translation>
    </message>
    <message>
        <source>Click here to test</source>
        <translation>سىناش ئۈچۈن بۇ يەرنى چېكىڭ</translation>
    </message>
    <message>
        <source>Microphone level</source>
        <extracomment>Read out for the moving wave, which shows how loud the microphone hears the user.</extracomment>
        <translation>مىكروفون ئاۋازىنىڭ كۈچلۈكلۈكى</translation>
    </message>
    <message>
        <source>Press Space or Escape to cancel the test</source>
        <translation>سىناقنى بىكار قىلىش ئۈچۈن بوشلۇق ياكى Esc كۇنۇپكىسىنى بېسىڭ</translation>
    </message>
    <message>
        <source>Service exception</source>
        <extracomment>Result of the voice test: the AI service could not start it.</extracomment>
        <translation>مۇلازىمەتتە بىنورماللىق كۆرۈلدى</translation>
    </message>
    <message>
        <source>Click here to test again</source>
        <translation>قايتا سىناش ئۈچۈن بۇ يەرنى چېكىڭ</translation>
    </message>
    <message>
        <source>Voice Test</source>
        <extracomment>Title of the microphone test.</extracomment>
        <translation>ئاۋاز سىنىقى</translation>
    </message>
    <message>
        <source>Network unavailable</source>
        <extracomment>Result of the voice test: it needs the network.</extracomment>
        <translation>تورنى ئىشلەتكىلى بولمايدۇ</translation>
    </message>
    <message>
        <source>It sounds good</source>
        <extracomment>Result of the voice test: the recording is clear.</extracomment>
        <translation>ئاۋازىڭىز ياخشى ئاڭلاندى</translation>
    </message>
    <message>
        <source>Turn down the input volume and try again</source>
        <translation>كىرگۈزۈش ئاۋاز مىقدارىنى تۆۋەنلىتىپ قايتا سىناڭ</translation>
    </message>
    <message>
        <source>Turn up the input volume and try again</source>
        <translation>كىرگۈزۈش ئاۋاز مىقدارىنى يۇقىرىلىتىپ قايتا سىناڭ</translation>
    </message>
    <message>
        <source>Too many noises</source>
        <extracomment>Result of the voice test: it is too noisy around the user.</extracomment>
        <translation>شاۋقۇن بەك كۆپ</translation>
    </message>
    <message>
        <source>No sound recorded</source>
        <translation>ھېچقانداق ئاۋاز خاتىرىلەنمىدى</translation>
    </message>
    <message>
        <source>Click to cancel the test</source>
        <translation>سىناقنى بىكار قىلىش ئۈچۈن چېكىڭ</translation>
    </message>
</context>
<context>
    <name>KeyLabel</name>
    <message>
        <source>None</source>
        <extracomment>On a key cap: no key is set.</extracomment>
        <translation>يوق</translation>
    </message>
</context>
<context>
    <name>ShortcutItem</name>
    <message>
        <source>Edit</source>
        <extracomment>Name of a button that has only an icon: the user wants to change this shortcut.</extracomment>
        <translation>تەھرىرلەش</translation>
    </message>
    <message>
        <source>Remove</source>
        <extracomment>Name of a button that has only an icon: the user wants to remove this shortcut.</extracomment>
        <translation>چىقىرىۋېتىش</translation>
    </message>
    <message>
        <source>Enter a new shortcut</source>
        <translation>يېڭى تېزلەتمە كۇنۇپكىنى كىرگۈزۈڭ</translation>
    </message>
    <message>
        <source>Edit the shortcut for “%1”</source>
        <extracomment>Name of a button that has only an icon, in the row of this shortcut.</extracomment>
        <translation>«%1» نىڭ تېزلەتمە كۇنۇپكىسىنى تەھرىرلەش</translation>
    </message>
    <message>
        <source>Remove the shortcut for “%1”</source>
        <extracomment>Name of a button that has only an icon, in the row of this shortcut.</extracomment>
        <translation>«%1» نىڭ تېزلەتمە كۇنۇپكىسىنى چىقىرىۋېتىش</translation>
    </message>
</context>
<context>
    <name>TavrenAIAssitantControlPlugin</name>
    <message>
        <source>Desktop AI Assistant</source>
        <translation>ئۈستەليۈزى ئەقلىي ياردەمچىسى</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>ئاۋازنى تېكىستكە ئايلاندۇرۇش</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>تېكىستنى ئاۋازغا ئايلاندۇرۇش</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>تەرجىمە</translation>
    </message>
    <message>
        <source>Voice Wakeup</source>
        <translation>ئاۋاز بىلەن ئويغىتىش</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>تىل</translation>
    </message>
    <message>
        <source>Show in the Dock</source>
        <translation>ۋەزىپە بالدىقىدا كۆرسىتىش</translation>
    </message>
    <message>
        <source>Voice Test</source>
        <translation>ئاۋاز سىنىقى</translation>
    </message>
    <message>
        <source>Show Speech Widget</source>
        <translation>ئاۋاز لەيلىمە كۆزنىكىنى كۆرسىتىش</translation>
    </message>
    <message>
        <source>Voice Gender</source>
        <translation>ئاۋاز تۈرى</translation>
    </message>
    <message>
        <source>Assistive Tools</source>
        <extracomment>The module&apos;s name in the control center&apos;s navigation.</extracomment>
        <translation>ياردەمچى قوراللار</translation>
    </message>
</context>
<context>
    <name>TextTranslateSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Translation&quot; in the context menu to translate the selected text.</source>
        <extracomment>%1 is a key combination such as Ctrl+Alt+T; the quoted text is this page&apos;s title.</extracomment>
        <translation>تېزلەتمە كۇنۇپكا (‎%1‎) نى بېسىڭىز ياكى ئوڭ كۇنۇپكا تىزىملىكىدىكى «تەرجىمە» نى چەكسىڭىز، تاللانغان تېكىست تەرجىمە قىلىنىدۇ.</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>تەرجىمە</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>تىل</translation>
    </message>
    <message>
        <source>CN-EN</source>
        <extracomment>Direction of translation: from Chinese into English.</extracomment>
        <translation>خەنزۇچىدىن ئىنگلىزچىغا</translation>
    </message>
    <message>
        <source>EN-CN</source>
        <extracomment>Direction of translation: from English into Chinese.</extracomment>
        <translation>ئىنگلىزچىدىن خەنزۇچىغا</translation>
    </message>
</context>
<context>
    <name>ThirdListWidget</name>
    <message>
        <source>Desktop AI Assistant</source>
        <translation>ئۈستەليۈزى ئەقلىي ياردەمچىسى</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>ئاۋازنى تېكىستكە ئايلاندۇرۇش</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>تېكىستنى ئاۋازغا ئايلاندۇرۇش</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>تەرجىمە</translation>
    </message>
    <message>
        <source>Assistive Tools</source>
        <translation>ياردەمچى قوراللار</translation>
    </message>
</context>
<context>
    <name>VoiceIatSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Speech to Text&quot; in the context menu to convert your speech to text.</source>
        <extracomment>%1 is a key combination such as Ctrl+Alt+T; the quoted text is this page&apos;s title.</extracomment>
        <translation>تېزلەتمە كۇنۇپكا (‎%1‎) نى بېسىڭىز ياكى ئوڭ كۇنۇپكا تىزىملىكىدىكى «ئاۋازنى تېكىستكە ئايلاندۇرۇش» نى چەكسىڭىز، سۆزلىرىڭىز تېكىستكە ئايلاندۇرۇلىدۇ.</translation>
    </message>
    <message>
        <source>Speech to Text</source>
        <translation>ئاۋازنى تېكىستكە ئايلاندۇرۇش</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>تىل</translation>
    </message>
    <message>
        <source>中文-普通话</source>
        <extracomment>Name of a spoken language: Mandarin Chinese.</extracomment>
        <translation>خەنزۇچە-ئورتاق تىل</translation>
    </message>
    <message>
        <source>English</source>
        <extracomment>Name of a spoken language.</extracomment>
        <translation>ئىنگلىزچە</translation>
    </message>
</context>
<context>
    <name>VoiceTTSSettingWidget</name>
    <message>
        <source>Press the shortcuts (%1) or click &quot;Text to Speech&quot; in the context menu to read the selected text out.</source>
        <extracomment>%1 is a key combination such as Ctrl+Alt+T; the quoted text is this page&apos;s title.</extracomment>
        <translation>تېزلەتمە كۇنۇپكا (‎%1‎) نى بېسىڭىز ياكى ئوڭ كۇنۇپكا تىزىملىكىدىكى «تېكىستنى ئاۋازغا ئايلاندۇرۇش» نى چەكسىڭىز، تاللانغان تېكىست ئوقۇپ بېرىلىدۇ.</translation>
    </message>
    <message>
        <source>Text to Speech</source>
        <translation>تېكىستنى ئاۋازغا ئايلاندۇرۇش</translation>
    </message>
    <message>
        <source>Show Speech Widget</source>
        <extracomment>Switch: the small floating window that is there while text is read aloud.</extracomment>
        <translation>ئاۋاز لەيلىمە كۆزنىكىنى كۆرسىتىش</translation>
    </message>
    <message>
        <source>Voice Gender</source>
        <extracomment>Title of a list of voices: woman, man, child.</extracomment>
        <translation>ئاۋاز تۈرى</translation>
    </message>
    <message>
        <source>Female</source>
        <extracomment>A woman&apos;s voice.</extracomment>
        <translation>ئايال ئاۋازى</translation>
    </message>
    <message>
        <source>Male</source>
        <extracomment>A man&apos;s voice.</extracomment>
        <translation>ئەر ئاۋازى</translation>
    </message>
    <message>
        <source>Children</source>
        <extracomment>A child&apos;s voice.</extracomment>
        <translation>بالا ئاۋازى</translation>
    </message>
</context>
</TS>
