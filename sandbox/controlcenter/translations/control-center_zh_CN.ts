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
    <name>controlcenter::BackButton</name>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>Back to the list</source>
        <translation>返回列表</translation>
    </message>
</context>
<context>
    <name>controlcenter::ControlCenterWindow</name>
    <message>
        <source>Control Center</source>
        <translation>控制中心</translation>
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
        <source>Light or dark theme</source>
        <translation>浅色或深色主题</translation>
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
    <message>
        <source>Clear search</source>
        <translation>清除搜索内容</translation>
    </message>
    <message>
        <source>Up and Down choose a result, Enter opens it</source>
        <translation>按上下方向键选择结果，按 Enter 键打开</translation>
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
    <name>controlcenter::SheetWindow</name>
    <message>
        <source>All looks of “%1”</source>
        <translation>“%1”的所有外观</translation>
    </message>
    <message>
        <source>Drawing: %1 of %2 languages</source>
        <translation>正在绘制：已完成 %1 种语言，共 %2 种</translation>
    </message>
    <message>
        <source>Nothing is marked.</source>
        <translation>没有任何标记。</translation>
    </message>
    <message>
        <source>Marked: %1</source>
        <translation>已标记：%1</translation>
    </message>
</context>
<context>
    <name>controlcenter::ShortcutsPage</name>
    <message>
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>Restore defaults</source>
        <translation>恢复默认</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
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
        <source>Used by “%1”. Press again to use it here instead.</source>
        <translation>“%1”已使用此快捷键。再按一次即改为在此使用。</translation>
    </message>
    <message>
        <source>The shortcut for “%1” is now %2.</source>
        <translation>“%1”的快捷键现在是 %2。</translation>
    </message>
    <message>
        <source>The shortcut for “%1” was removed.</source>
        <translation>已移除“%1”的快捷键。</translation>
    </message>
    <message>
        <source>The shortcuts are the usual ones again.</source>
        <translation>快捷键已恢复默认。</translation>
    </message>
    <message>
        <source>The shortcuts are as they were before.</source>
        <translation>快捷键已恢复原状。</translation>
    </message>
    <message>
        <source>The shortcuts cannot be read or changed now: their service does not answer.</source>
        <translation>现在无法读取或更改快捷键：其服务没有响应。</translation>
    </message>
</context>
<context>
    <name>controlcenter::ThemeButton</name>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
    <message>
        <source>Follow the system</source>
        <translation>跟随系统</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>Theme: %1</source>
        <translation>主题：%1</translation>
    </message>
</context>
</TS>
