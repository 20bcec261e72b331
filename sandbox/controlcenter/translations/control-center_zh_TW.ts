<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_TW">
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translation>LTR</translation>
    </message>
</context>
<context>
    <name>controlcenter::ControlCenterWindow</name>
    <message>
        <source>Control Center</source>
        <translation>控制中心</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>鍵盤</translation>
    </message>
</context>
<context>
    <name>controlcenter::HostPage</name>
    <message>
        <source>These settings are the desktop&apos;s own. This window runs the assistant&apos;s module only.</source>
        <translation>這些設定由桌面環境提供，此視窗僅執行助理的模組。</translation>
    </message>
</context>
<context>
    <name>controlcenter::NavigationColumn</name>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
</context>
<context>
    <name>controlcenter::SearchField</name>
    <message>
        <source>Search settings</source>
        <translation>搜尋設定</translation>
    </message>
</context>
<context>
    <name>controlcenter::SearchPopup</name>
    <message>
        <source>Nothing found</source>
        <translation>找不到結果</translation>
    </message>
    <message>
        <source>Search results</source>
        <translation>搜尋結果</translation>
    </message>
</context>
<context>
    <name>controlcenter::ThemeButton</name>
    <message>
        <source>Dark theme</source>
        <translation>深色佈景主題</translation>
    </message>
    <message>
        <source>Light or dark theme</source>
        <translation>淺色或深色佈景主題</translation>
    </message>
</context>
</TS>
