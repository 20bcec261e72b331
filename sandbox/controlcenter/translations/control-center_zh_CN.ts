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
    <name>controlcenter::CallList</name>
    <message>
        <source>Calls to</source>
        <translation>调用对象</translation>
    </message>
    <message>
        <source>All services</source>
        <translation>所有服务</translation>
    </message>
    <message>
        <source>Calls</source>
        <translation>调用</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清空</translation>
    </message>
    <message>
        <source>No calls yet</source>
        <translation>尚无调用</translation>
    </message>
</context>
<context>
    <name>controlcenter::CallModel</name>
    <message>
        <source>no reply expected</source>
        <translation>无需应答</translation>
    </message>
    <message>
        <source>reply expected</source>
        <translation>需要应答</translation>
    </message>
    <message>
        <source>no answer yet</source>
        <translation>尚无应答</translation>
    </message>
    <message>
        <source>error: %1</source>
        <translation>错误：%1</translation>
    </message>
    <message>
        <source>answered</source>
        <translation>已应答</translation>
    </message>
    <message>
        <source>answer: %1</source>
        <translation>应答：%1</translation>
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
        <translation>浅色或深色主题</translation>
    </message>
</context>
<context>
    <name>controlcenter::FaultTexts</name>
    <message>
        <source>Slow by %1 s</source>
        <translation>延迟 %1 秒</translation>
    </message>
    <message>
        <source>Refusing</source>
        <translation>拒绝请求</translation>
    </message>
    <message>
        <source>Wrong types</source>
        <translation>类型错误</translation>
    </message>
    <message>
        <source>Hung</source>
        <translation>挂起</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>已停止</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>运行中</translation>
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
    <name>controlcenter::OwnPages</name>
    <message>
        <source>Shortcuts</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>服务</translation>
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
    <message>
        <source>World</source>
        <translation>运行环境</translation>
    </message>
    <message>
        <source>Steer the services and whatever else the settings depend on (F12)</source>
        <translation>控制各项服务以及设置所依赖的其他环境（F12）</translation>
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
        <source>Theme</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>Theme: %1</source>
        <translation>主题：%1</translation>
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
        <translation>高对比度</translation>
    </message>
    <message>
        <source>Follow the system</source>
        <translation>跟随系统</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
</context>
<context>
    <name>controlcenter::WorldDrawer</name>
    <message>
        <source>World</source>
        <translation>运行环境</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>服务</translation>
    </message>
    <message>
        <source>Surroundings</source>
        <translation>周边环境</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>语音</translation>
    </message>
    <message>
        <source>Voice in noise</source>
        <translation>嘈杂语音</translation>
    </message>
    <message>
        <source>Too loud</source>
        <translation>声音过大</translation>
    </message>
    <message>
        <source>Too quiet</source>
        <translation>声音过小</translation>
    </message>
    <message>
        <source>Silence</source>
        <translation>静音</translation>
    </message>
    <message>
        <source>Unplugged</source>
        <translation>已拔出</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>麦克风</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>网络连接</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>已连接</translation>
    </message>
    <message>
        <source>Local network only</source>
        <translation>仅本地网络</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>正在连接</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>已断开</translation>
    </message>
    <message>
        <source>Icon in the dock</source>
        <translation>任务栏中的图标</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>隐藏</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>外观</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Text size</source>
        <translation>文字大小</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>布局方向</translation>
    </message>
    <message>
        <source>Left to right</source>
        <translation>从左到右</translation>
    </message>
    <message>
        <source>Right to left</source>
        <translation>从右到左</translation>
    </message>
    <message>
        <source>The window restarts in the language that is chosen.</source>
        <translation>窗口会以所选语言重新启动。</translation>
    </message>
    <message>
        <source>By language</source>
        <translation>按语言</translation>
    </message>
</context>
<context>
    <name>doctor::Contract</name>
    <message>
        <source>&quot;Voice Wakeup&quot; and &quot;OneShot&quot; can be switched, without effect.</source>
        <translation>“语音唤醒”和“一次说完唤醒词和指令”可以切换，但不起作用。</translation>
    </message>
    <message>
        <source>On &quot;Speech to Text&quot; the switch is off and the language is &quot;中文-普通话&quot;; what is chosen has no effect.</source>
        <translation>“语音转文字”页面的开关处于关闭状态，语言为“中文-普通话”；所做的选择不起作用。</translation>
    </message>
    <message>
        <source>On &quot;Text to Speech&quot; both switches are off and the voice is &quot;Children&quot;; what is chosen has no effect.</source>
        <translation>“文字转语音”页面的两个开关都处于关闭状态，声音为“童声”；所做的选择不起作用。</translation>
    </message>
    <message>
        <source>On &quot;Translation&quot; the switch is off and the direction is &quot;EN-CN&quot;; what is chosen has no effect.</source>
        <translation>“翻译”页面的开关处于关闭状态，方向为“英译中”；所做的选择不起作用。</translation>
    </message>
    <message>
        <source>&quot;Show in the Dock&quot; is on whatever the dock shows; switching it has no effect.</source>
        <translation>无论任务栏中是否显示，“在任务栏中显示”始终为开启；切换不起作用。</translation>
    </message>
    <message>
        <source>A voice test shows its wave until it is cancelled, without words and verdict.</source>
        <translation>语音测试会一直显示波形，直到被取消，既没有文字也没有结论。</translation>
    </message>
    <message>
        <source>The hints of &quot;Speech to Text&quot;, &quot;Text to Speech&quot; and &quot;Translation&quot; have empty parentheses in place of the shortcut.</source>
        <translation>“语音转文字”、“文字转语音”和“翻译”的提示中，快捷键的位置是空括号。</translation>
    </message>
    <message>
        <source>A voice test goes on with the old microphone when another becomes the default one.</source>
        <translation>其他麦克风成为默认麦克风后，语音测试仍使用原来的麦克风。</translation>
    </message>
    <message>
        <source>A voice test ends at once: &quot;Network unavailable&quot;.</source>
        <translation>语音测试立即结束：“网络不可用”。</translation>
    </message>
    <message>
        <source>What is asked for comes only after the bus&apos;s time-out of 25 s.</source>
        <translation>所请求的内容要等总线 25 秒超时之后才会出现。</translation>
    </message>
    <message>
        <source>The window stands still for the bus&apos;s time-out of 25 s.</source>
        <translation>窗口静止不动，直到总线 25 秒超时。</translation>
    </message>
    <message>
        <source>Nothing.</source>
        <translation>没有任何变化。</translation>
    </message>
    <message>
        <source>The window stands still until the answer comes.</source>
        <translation>收到应答之前，窗口静止不动。</translation>
    </message>
    <message>
        <source>What is asked for comes only with the answer.</source>
        <translation>收到应答之后，所请求的内容才会出现。</translation>
    </message>
</context>
</TS>
