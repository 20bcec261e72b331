<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
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
        <translation>键盘</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>服务</translation>
    </message>
    <message>
        <source>These settings are the desktop&apos;s own. This window runs the assistant&apos;s module only.</source>
        <translation>这些设置由桌面环境提供，此窗口只运行助手的模块。</translation>
    </message>
</context>
<context>
    <name>controlcenter::NavigationColumn</name>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
</context>
<context>
    <name>controlcenter::SearchField</name>
    <message>
        <source>Search settings</source>
        <translation>搜索设置</translation>
    </message>
</context>
<context>
    <name>controlcenter::SearchPopup</name>
    <message>
        <source>Nothing found</source>
        <translation>无搜索结果</translation>
    </message>
    <message>
        <source>Search results</source>
        <translation>搜索结果</translation>
    </message>
</context>
<context>
    <name>controlcenter::ServiceCard</name>
    <message>
        <source>Running</source>
        <translation>运行中</translation>
    </message>
    <message>
        <source>Not answering</source>
        <translation>无响应</translation>
    </message>
    <message>
        <source>Not running</source>
        <translation>未运行</translation>
    </message>
</context>
<context>
    <name>controlcenter::ServicesPage</name>
    <message>
        <source>Services</source>
        <translation>服务</translation>
    </message>
    <message>
        <source>Assistant</source>
        <translation>助手</translation>
    </message>
    <message>
        <source>Dock icon</source>
        <translation>任务栏图标</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>AI service</source>
        <translation>AI 服务</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>声音</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>网络</translation>
    </message>
</context>
<context>
    <name>controlcenter::ShortcutsPage</name>
    <message>
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>Press the new shortcut for “%1”. Escape keeps the old one.</source>
        <translation>请按下“%1”的新快捷键。按 Esc 键保留原来的快捷键。</translation>
    </message>
    <message>
        <source>%1 is the shortcut for “%2” already.</source>
        <translation>%1 已是“%2”的快捷键。</translation>
    </message>
    <message>
        <source>The shortcut for “%1”: %2</source>
        <translation>“%1”的快捷键：%2</translation>
    </message>
</context>
<context>
    <name>controlcenter::ThemeButton</name>
    <message>
        <source>Dark theme</source>
        <translation>深色主题</translation>
    </message>
    <message>
        <source>Light or dark theme</source>
        <translation>浅色或深色主题</translation>
    </message>
</context>
</TS>
