<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ug">
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translation>RTL</translation>
    </message>
</context>
<context>
    <name>controlcenter::ControlCenterWindow</name>
    <message>
        <source>Control Center</source>
        <translation>كونترول مەركىزى</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>كۇنۇپكا تاختىسى</translation>
    </message>
</context>
<context>
    <name>controlcenter::HostPage</name>
    <message>
        <source>These settings are the desktop&apos;s own. This window runs the assistant&apos;s module only.</source>
        <translation>بۇ تەڭشەكلەر ئۈستەليۈزىنىڭ ئۆزىنىڭ. بۇ كۆزنەك پەقەت ياردەمچىنىڭ بۆلىكىنىلا ئىجرا قىلىدۇ.</translation>
    </message>
</context>
<context>
    <name>controlcenter::NavigationColumn</name>
    <message>
        <source>Settings</source>
        <translation>تەڭشەكلەر</translation>
    </message>
</context>
<context>
    <name>controlcenter::SearchField</name>
    <message>
        <source>Search settings</source>
        <translation>تەڭشەك ئىزدەش</translation>
    </message>
</context>
<context>
    <name>controlcenter::SearchPopup</name>
    <message>
        <source>Nothing found</source>
        <translation>ھېچنېمە تېپىلمىدى</translation>
    </message>
    <message>
        <source>Search results</source>
        <translation>ئىزدەش نەتىجىسى</translation>
    </message>
</context>
<context>
    <name>controlcenter::ThemeButton</name>
    <message>
        <source>Dark theme</source>
        <translation>قاراڭغۇ ئۇسلۇب</translation>
    </message>
    <message>
        <source>Light or dark theme</source>
        <translation>يورۇق ياكى قاراڭغۇ ئۇسلۇب</translation>
    </message>
</context>
</TS>
