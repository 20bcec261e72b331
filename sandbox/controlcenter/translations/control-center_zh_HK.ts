<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_HK">
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
        <translation>返回清單</translation>
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
        <translation>快捷鍵</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>服務</translation>
    </message>
    <message>
        <source>Light or dark theme</source>
        <translation>淺色或深色主題</translation>
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
    <message>
        <source>Clear search</source>
        <translation>清除搜尋內容</translation>
    </message>
    <message>
        <source>Up and Down choose a result, Enter opens it</source>
        <translation>按上下方向鍵選擇結果，按 Enter 鍵開啟</translation>
    </message>
</context>
<context>
    <name>controlcenter::SearchPopup</name>
    <message>
        <source>Nothing found</source>
        <translation>沒有搜尋結果</translation>
    </message>
    <message>
        <source>Search results</source>
        <translation>搜尋結果</translation>
    </message>
</context>
<context>
    <name>controlcenter::ServiceCard</name>
    <message>
        <source>Running</source>
        <translation>執行中</translation>
    </message>
    <message>
        <source>Not answering</source>
        <translation>沒有回應</translation>
    </message>
    <message>
        <source>Not running</source>
        <translation>目前未在執行</translation>
    </message>
</context>
<context>
    <name>controlcenter::ServicesPage</name>
    <message>
        <source>Services</source>
        <translation>服務</translation>
    </message>
    <message>
        <source>Assistant</source>
        <translation>助理</translation>
    </message>
    <message>
        <source>Dock icon</source>
        <translation>工作列圖示</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>快捷鍵</translation>
    </message>
    <message>
        <source>AI service</source>
        <translation>AI 服務</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>聲音</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>網絡</translation>
    </message>
</context>
<context>
    <name>controlcenter::SheetWindow</name>
    <message>
        <source>All looks of “%1”</source>
        <translation>「%1」的所有外觀</translation>
    </message>
    <message>
        <source>Drawing: %1 of %2 languages</source>
        <translation>正在繪製：已完成 %1 種語言，共 %2 種</translation>
    </message>
    <message>
        <source>Nothing is marked.</source>
        <translation>沒有任何標記。</translation>
    </message>
    <message>
        <source>Marked: %1</source>
        <translation>已標記：%1</translation>
    </message>
</context>
<context>
    <name>controlcenter::ShortcutsPage</name>
    <message>
        <source>Edit</source>
        <translation>編輯</translation>
    </message>
    <message>
        <source>Restore defaults</source>
        <translation>還原預設值</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>復原</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>Press the new shortcut for “%1”. Escape keeps the old one.</source>
        <translation>請按下「%1」的新快捷鍵。按 Esc 鍵保留原來的快捷鍵。</translation>
    </message>
    <message>
        <source>Used by “%1”. Press again to use it here instead.</source>
        <translation>「%1」已使用此快捷鍵。再按一次即改於此處使用。</translation>
    </message>
    <message>
        <source>The shortcut for “%1” is now %2.</source>
        <translation>「%1」的快捷鍵現在是 %2。</translation>
    </message>
    <message>
        <source>The shortcut for “%1” was removed.</source>
        <translation>已移除「%1」的快捷鍵。</translation>
    </message>
    <message>
        <source>The shortcuts are the usual ones again.</source>
        <translation>快捷鍵已還原為預設值。</translation>
    </message>
    <message>
        <source>The shortcuts are as they were before.</source>
        <translation>快捷鍵已回復原狀。</translation>
    </message>
    <message>
        <source>The shortcuts cannot be read or changed now: their service does not answer.</source>
        <translation>目前無法讀取或更改快捷鍵：其服務沒有回應。</translation>
    </message>
</context>
<context>
    <name>controlcenter::ThemeButton</name>
    <message>
        <source>Light</source>
        <translation>淺色</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
    <message>
        <source>Follow the system</source>
        <translation>跟隨系統</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>主題</translation>
    </message>
    <message>
        <source>Theme: %1</source>
        <translation>主題：%1</translation>
    </message>
</context>
</TS>
