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
    <name>controlcenter::CallList</name>
    <message>
        <source>Calls to</source>
        <translation>呼叫對象</translation>
    </message>
    <message>
        <source>All services</source>
        <translation>所有服務</translation>
    </message>
    <message>
        <source>Calls</source>
        <translation>呼叫</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>複製</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>No calls yet</source>
        <translation>尚無呼叫</translation>
    </message>
</context>
<context>
    <name>controlcenter::CallModel</name>
    <message>
        <source>no reply expected</source>
        <translation>無需回應</translation>
    </message>
    <message>
        <source>reply expected</source>
        <translation>需要回應</translation>
    </message>
    <message>
        <source>no answer yet</source>
        <translation>尚無回應</translation>
    </message>
    <message>
        <source>error: %1</source>
        <translation>錯誤：%1</translation>
    </message>
    <message>
        <source>answered</source>
        <translation>已回應</translation>
    </message>
    <message>
        <source>answer: %1</source>
        <translation>回應：%1</translation>
    </message>
</context>
<context>
    <name>controlcenter::ControlCenterWindow</name>
    <message>
        <source>Control Center</source>
        <translation>控制中心</translation>
    </message>
    <message>
        <source>Light or dark theme</source>
        <translation>淺色或深色主題</translation>
    </message>
</context>
<context>
    <name>controlcenter::FaultTexts</name>
    <message>
        <source>Slow by %1 s</source>
        <translation>延遲 %1 秒</translation>
    </message>
    <message>
        <source>Refusing</source>
        <translation>拒絕請求</translation>
    </message>
    <message>
        <source>Wrong types</source>
        <translation>類型錯誤</translation>
    </message>
    <message>
        <source>Hung</source>
        <translation>停止回應</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>已停止</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>執行中</translation>
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
    <name>controlcenter::OwnPages</name>
    <message>
        <source>Shortcuts</source>
        <translation>快捷鍵</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>服務</translation>
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
    <message>
        <source>World</source>
        <translation>執行環境</translation>
    </message>
    <message>
        <source>Steer the services and whatever else the settings depend on (F12)</source>
        <translation>控制各項服務及設定所依賴的其他環境（F12）</translation>
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
        <source>Theme</source>
        <translation>主題</translation>
    </message>
    <message>
        <source>Theme: %1</source>
        <translation>主題：%1</translation>
    </message>
</context>
<context>
    <name>controlcenter::ThemeChoice</name>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
    <message>
        <source>High contrast</source>
        <translation>高對比度</translation>
    </message>
    <message>
        <source>Follow the system</source>
        <translation>跟隨系統</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>淺色</translation>
    </message>
</context>
<context>
    <name>controlcenter::WorldDrawer</name>
    <message>
        <source>World</source>
        <translation>執行環境</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>關閉</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>服務</translation>
    </message>
    <message>
        <source>Surroundings</source>
        <translation>周邊環境</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>語音</translation>
    </message>
    <message>
        <source>Voice in noise</source>
        <translation>嘈雜語音</translation>
    </message>
    <message>
        <source>Too loud</source>
        <translation>聲音太大</translation>
    </message>
    <message>
        <source>Too quiet</source>
        <translation>聲音太小</translation>
    </message>
    <message>
        <source>Silence</source>
        <translation>靜音</translation>
    </message>
    <message>
        <source>Unplugged</source>
        <translation>已拔除</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>咪高峰</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>網絡連線</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>已連線</translation>
    </message>
    <message>
        <source>Local network only</source>
        <translation>僅本地網絡</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>正在連線</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>已中斷連線</translation>
    </message>
    <message>
        <source>Icon in the dock</source>
        <translation>工作列中的圖示</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>顯示</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>隱藏</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>外觀</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>主題</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>語言</translation>
    </message>
    <message>
        <source>Text size</source>
        <translation>文字大小</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>版面方向</translation>
    </message>
    <message>
        <source>Left to right</source>
        <translation>由左至右</translation>
    </message>
    <message>
        <source>Right to left</source>
        <translation>由右至左</translation>
    </message>
    <message>
        <source>The window restarts in the language that is chosen.</source>
        <translation>視窗會以所選語言重新啟動。</translation>
    </message>
    <message>
        <source>By language</source>
        <translation>依語言</translation>
    </message>
</context>
<context>
    <name>doctor::Contract</name>
    <message>
        <source>&quot;Voice Wakeup&quot; and &quot;OneShot&quot; can be switched, without effect.</source>
        <translation>可切換「語音喚醒」及「一次過說出喚醒詞及指令」，但沒有作用。</translation>
    </message>
    <message>
        <source>On &quot;Speech to Text&quot; the switch is off and the language is &quot;中文-普通话&quot;; what is chosen has no effect.</source>
        <translation>「語音轉文字」頁面的開關為關閉，語言為「中文-普通話」；所作的選擇沒有作用。</translation>
    </message>
    <message>
        <source>On &quot;Text to Speech&quot; both switches are off and the voice is &quot;Children&quot;; what is chosen has no effect.</source>
        <translation>「文字轉語音」頁面的兩個開關均為關閉，聲音為「童聲」；所作的選擇沒有作用。</translation>
    </message>
    <message>
        <source>On &quot;Translation&quot; the switch is off and the direction is &quot;EN-CN&quot;; what is chosen has no effect.</source>
        <translation>「翻譯」頁面的開關為關閉，方向為「英譯中」；所作的選擇沒有作用。</translation>
    </message>
    <message>
        <source>&quot;Show in the Dock&quot; is on whatever the dock shows; switching it has no effect.</source>
        <translation>不論工作列有否顯示，「於工作列顯示」都是開啟；切換沒有作用。</translation>
    </message>
    <message>
        <source>A voice test shows its wave until it is cancelled, without words and verdict.</source>
        <translation>語音測試會一直顯示波形，直至取消，沒有文字及結論。</translation>
    </message>
    <message>
        <source>The hints of &quot;Speech to Text&quot;, &quot;Text to Speech&quot; and &quot;Translation&quot; have empty parentheses in place of the shortcut.</source>
        <translation>「語音轉文字」、「文字轉語音」及「翻譯」的提示中，快捷鍵的位置是空括號。</translation>
    </message>
    <message>
        <source>A voice test goes on with the old microphone when another becomes the default one.</source>
        <translation>其他咪高峰成為預設咪高峰後，語音測試仍使用原來的咪高峰。</translation>
    </message>
    <message>
        <source>A voice test ends at once: &quot;Network unavailable&quot;.</source>
        <translation>語音測試會立即結束：「網絡無法使用」。</translation>
    </message>
    <message>
        <source>What is asked for comes only after the bus&apos;s time-out of 25 s.</source>
        <translation>所要求的內容要待匯流排 25 秒逾時後才會出現。</translation>
    </message>
    <message>
        <source>The window stands still for the bus&apos;s time-out of 25 s.</source>
        <translation>視窗會靜止不動，直至匯流排 25 秒逾時。</translation>
    </message>
    <message>
        <source>Nothing.</source>
        <translation>沒有任何變化。</translation>
    </message>
    <message>
        <source>The window stands still until the answer comes.</source>
        <translation>收到回應之前，視窗會靜止不動。</translation>
    </message>
    <message>
        <source>What is asked for comes only with the answer.</source>
        <translation>收到回應之後，所要求的內容才會出現。</translation>
    </message>
</context>
</TS>
