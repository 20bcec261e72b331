<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="bo">
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
        <translation>ཕྱིར་ལོག</translation>
    </message>
    <message>
        <source>Back to the list</source>
        <translation>རེའུ་མིག་ཏུ་ལྡོག་པ</translation>
    </message>
</context>
<context>
    <name>controlcenter::CallList</name>
    <message>
        <source>Calls to</source>
        <translation>འབོད་ཡུལ</translation>
    </message>
    <message>
        <source>All services</source>
        <translation>ཞབས་ཞུ་ཡོངས</translation>
    </message>
    <message>
        <source>Calls</source>
        <translation>འབོད་པ</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>འདྲ་བཟོ</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>གཙང་སེལ</translation>
    </message>
    <message>
        <source>No calls yet</source>
        <translation>ད་དུང་འབོད་པ་མེད</translation>
    </message>
</context>
<context>
    <name>controlcenter::CallModel</name>
    <message>
        <source>no reply expected</source>
        <translation>ལན་མི་དགོས</translation>
    </message>
    <message>
        <source>reply expected</source>
        <translation>ལན་དགོས</translation>
    </message>
    <message>
        <source>no answer yet</source>
        <translation>ད་དུང་ལན་མེད</translation>
    </message>
    <message>
        <source>error: %1</source>
        <translation>ནོར་འཁྲུལ། %1</translation>
    </message>
    <message>
        <source>answered</source>
        <translation>ལན་བཏབ་ཟིན</translation>
    </message>
    <message>
        <source>answer: %1</source>
        <translation>ལན། %1</translation>
    </message>
</context>
<context>
    <name>controlcenter::ControlCenterWindow</name>
    <message>
        <source>Control Center</source>
        <translation>ཚོད་འཛིན་ལྟེ་གནས</translation>
    </message>
    <message>
        <source>Light or dark theme</source>
        <translation>མདོག་དཀར་བའམ་ནག་པའི་བརྗོད་གཞི</translation>
    </message>
</context>
<context>
    <name>controlcenter::FaultTexts</name>
    <message>
        <source>Slow by %1 s</source>
        <translation>སྐར་ཆ་ %1 འགོར་བ</translation>
    </message>
    <message>
        <source>Refusing</source>
        <translation>ངོས་མི་ལེན་པ</translation>
    </message>
    <message>
        <source>Wrong types</source>
        <translation>རིགས་ནོར་བ</translation>
    </message>
    <message>
        <source>Hung</source>
        <translation>འགུལ་མི་ཐུབ་པ</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>མཚམས་བཞག་པ</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>འཁོར་བཞིན་པ</translation>
    </message>
</context>
<context>
    <name>controlcenter::NavigationColumn</name>
    <message>
        <source>Settings</source>
        <translation>སྒྲིག་འགོད</translation>
    </message>
</context>
<context>
    <name>controlcenter::OwnPages</name>
    <message>
        <source>Shortcuts</source>
        <translation>མྱུར་མཐེབ</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>ཞབས་ཞུ</translation>
    </message>
</context>
<context>
    <name>controlcenter::SearchField</name>
    <message>
        <source>Search settings</source>
        <translation>སྒྲིག་འགོད་འཚོལ་བ</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>འཚོལ་བཤེར་གྱི་ཡི་གེ་གཙང་སེལ</translation>
    </message>
    <message>
        <source>Up and Down choose a result, Enter opens it</source>
        <translation>ཡར་མདའ་དང་མར་མདའི་མཐེབ་ཀྱིས་འབྲས་བུ་འདེམས་པ་དང་ Enter མཐེབ་ཀྱིས་ཁ་འབྱེད</translation>
    </message>
</context>
<context>
    <name>controlcenter::SearchPopup</name>
    <message>
        <source>Nothing found</source>
        <translation>རྙེད་མ་བྱུང</translation>
    </message>
    <message>
        <source>Search results</source>
        <translation>འཚོལ་འབྲས</translation>
    </message>
</context>
<context>
    <name>controlcenter::ServiceCard</name>
    <message>
        <source>Running</source>
        <translation>འཁོར་བཞིན་པ</translation>
    </message>
    <message>
        <source>Not answering</source>
        <translation>ལན་མི་འདེབས</translation>
    </message>
    <message>
        <source>Not running</source>
        <translation>འཁོར་མི་འདུག</translation>
    </message>
</context>
<context>
    <name>controlcenter::ServicesPage</name>
    <message>
        <source>Services</source>
        <translation>ཞབས་ཞུ</translation>
    </message>
    <message>
        <source>Assistant</source>
        <translation>ལག་རོགས</translation>
    </message>
    <message>
        <source>Dock icon</source>
        <translation>ལས་འགན་སྡེ་ཚན་གྱི་རིས་རྟགས</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>མྱུར་མཐེབ</translation>
    </message>
    <message>
        <source>AI service</source>
        <translation>AI ཞབས་ཞུ</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>སྒྲ</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>དྲ་རྒྱ</translation>
    </message>
    <message>
        <source>World</source>
        <translation>ཁོར་ཡུག</translation>
    </message>
    <message>
        <source>Steer the services and whatever else the settings depend on (F12)</source>
        <translation>ཞབས་ཞུ་དང་སྒྲིག་འགོད་ལ་མཁོ་བའི་གཞན་དག་ཚོད་འཛིན་བྱེད་པ་ (F12)</translation>
    </message>
</context>
<context>
    <name>controlcenter::SheetWindow</name>
    <message>
        <source>All looks of “%1”</source>
        <translation>“%1”ཞེས་པའི་མཐོང་སྣང་ཚང་མ</translation>
    </message>
    <message>
        <source>Drawing: %1 of %2 languages</source>
        <translation>འབྲི་བཞིན་པ། སྐད་ཡིག་ %2 ནས་ %1</translation>
    </message>
    <message>
        <source>Nothing is marked.</source>
        <translation>རྟགས་བརྒྱབ་པ་གང་ཡང་མེད།</translation>
    </message>
    <message>
        <source>Marked: %1</source>
        <translation>རྟགས་བརྒྱབ་པ། %1</translation>
    </message>
</context>
<context>
    <name>controlcenter::ShortcutsPage</name>
    <message>
        <source>Edit</source>
        <translation>རྩོམ་སྒྲིག</translation>
    </message>
    <message>
        <source>Restore defaults</source>
        <translation>སྔོན་སྒྲིག་སླར་གསོ</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>ཕྱིར་འཐེན</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>ལེགས་གྲུབ</translation>
    </message>
    <message>
        <source>Press the new shortcut for “%1”. Escape keeps the old one.</source>
        <translation>“%1”ཞེས་པའི་མྱུར་མཐེབ་གསར་བ་མནོན་རོགས། Esc མཐེབ་མནན་ན་སྔར་གྱི་མྱུར་མཐེབ་རང་འཇགས་ཡིན།</translation>
    </message>
    <message>
        <source>Used by “%1”. Press again to use it here instead.</source>
        <translation>“%1”ཞེས་པས་བེད་སྤྱོད་བྱེད་བཞིན་ཡོད། ཡང་བསྐྱར་མནན་ན་འདིར་བེད་སྤྱོད་བྱེད་ཐུབ།</translation>
    </message>
    <message>
        <source>The shortcut for “%1” is now %2.</source>
        <translation>“%1”ཞེས་པའི་མྱུར་མཐེབ་ད་ལྟ་ %2 ཡིན།</translation>
    </message>
    <message>
        <source>The shortcut for “%1” was removed.</source>
        <translation>“%1”ཞེས་པའི་མྱུར་མཐེབ་མེད་པར་བཟོས་ཟིན།</translation>
    </message>
    <message>
        <source>The shortcuts are the usual ones again.</source>
        <translation>མྱུར་མཐེབ་རྣམས་སྔོན་སྒྲིག་ལྟར་སླར་གསོ་བྱས་ཟིན།</translation>
    </message>
    <message>
        <source>The shortcuts are as they were before.</source>
        <translation>མྱུར་མཐེབ་རྣམས་སྔར་གྱི་རྣམ་པར་སླར་གསོ་བྱས་ཟིན།</translation>
    </message>
    <message>
        <source>The shortcuts cannot be read or changed now: their service does not answer.</source>
        <translation>ད་ལྟ་མྱུར་མཐེབ་ཀློག་པའམ་བསྒྱུར་མི་ཐུབ། དེའི་ཞབས་ཞུས་ལན་མི་འདེབས།</translation>
    </message>
</context>
<context>
    <name>controlcenter::ThemeButton</name>
    <message>
        <source>Theme</source>
        <translation>བརྗོད་གཞི</translation>
    </message>
    <message>
        <source>Theme: %1</source>
        <translation>བརྗོད་གཞི: %1</translation>
    </message>
</context>
<context>
    <name>controlcenter::ThemeChoice</name>
    <message>
        <source>Dark</source>
        <translation>མདོག་ནག་པོ</translation>
    </message>
    <message>
        <source>High contrast</source>
        <translation>བསྡུར་ཚད་མཐོ་བ</translation>
    </message>
    <message>
        <source>Follow the system</source>
        <translation>མ་ལག་དང་བསྟུན་པ</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>མདོག་དཀར་པོ</translation>
    </message>
</context>
<context>
    <name>controlcenter::WorldDrawer</name>
    <message>
        <source>World</source>
        <translation>ཁོར་ཡུག</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>ཁ་རྒྱག་པ</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>ཞབས་ཞུ</translation>
    </message>
    <message>
        <source>Surroundings</source>
        <translation>ཉེ་འཁོར</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>སྐད་སྒྲ</translation>
    </message>
    <message>
        <source>Voice in noise</source>
        <translation>འུར་སྒྲའི་ནང་གི་སྐད་སྒྲ</translation>
    </message>
    <message>
        <source>Too loud</source>
        <translation>སྒྲ་ཆེ་དྲགས་པ</translation>
    </message>
    <message>
        <source>Too quiet</source>
        <translation>སྒྲ་ཆུང་དྲགས་པ</translation>
    </message>
    <message>
        <source>Silence</source>
        <translation>སྒྲ་མེད</translation>
    </message>
    <message>
        <source>Unplugged</source>
        <translation>བཏོན་ཟིན་པ</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>མའེ་ཁེ་ཧྥེང</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>འབྲེལ་མཐུད</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>འབྲེལ་མཐུད་ཟིན་པ</translation>
    </message>
    <message>
        <source>Local network only</source>
        <translation>ས་གནས་དྲ་རྒྱ་ཁོ་ན</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>འབྲེལ་མཐུད་བཞིན་པ</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>འབྲེལ་མཐུད་ཆད་པ</translation>
    </message>
    <message>
        <source>Icon in the dock</source>
        <translation>ལས་འགན་སྡེ་ཚན་ནང་གི་རིས་རྟགས</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>མངོན་པ</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>སྦས་པ</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>མངོན་ཚུལ</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>བརྗོད་གཞི</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>སྐད་ཡིག</translation>
    </message>
    <message>
        <source>Text size</source>
        <translation>ཡི་གེའི་ཆེ་ཆུང</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>ཕྱོགས</translation>
    </message>
    <message>
        <source>Left to right</source>
        <translation>གཡོན་ནས་གཡས</translation>
    </message>
    <message>
        <source>Right to left</source>
        <translation>གཡས་ནས་གཡོན</translation>
    </message>
    <message>
        <source>The window restarts in the language that is chosen.</source>
        <translation>བདམས་པའི་སྐད་ཡིག་ཐོག་སྒེའུ་ཁུང་བསྐྱར་དུ་འགོ་འཛུགས།</translation>
    </message>
    <message>
        <source>By language</source>
        <translation>སྐད་ཡིག་ལྟར</translation>
    </message>
</context>
<context>
    <name>doctor::Contract</name>
    <message>
        <source>&quot;Voice Wakeup&quot; and &quot;OneShot&quot; can be switched, without effect.</source>
        <translation>“སྐད་སྒྲས་དཀྲོག་སློང” དང་ “དཀྲོག་ཚིག་དང་བཀའ་ཐེངས་གཅིག་ལ་བཤད་པ” ཞེས་པའི་སྒོ་བརྗེ་ཐུབ་ཀྱང་ནུས་པ་མེད།</translation>
    </message>
    <message>
        <source>On &quot;Speech to Text&quot; the switch is off and the language is &quot;中文-普通话&quot;; what is chosen has no effect.</source>
        <translation>“སྐད་སྒྲ་ཡི་གེར་བསྒྱུར་བ” ཞེས་པའི་ཤོག་ངོས་སུ་གློག་སྒོ་བརྒྱབ་ཡོད་པ་དང་། སྐད་ཡིག་ནི་ “རྒྱ་སྐད-སྤྱི་སྐད” ཡིན། གང་བདམས་ཀྱང་ནུས་པ་མེད།</translation>
    </message>
    <message>
        <source>On &quot;Text to Speech&quot; both switches are off and the voice is &quot;Children&quot;; what is chosen has no effect.</source>
        <translation>“ཡི་གེ་སྐད་སྒྲར་བསྒྱུར་བ” ཞེས་པའི་ཤོག་ངོས་སུ་གློག་སྒོ་གཉིས་ཀ་བརྒྱབ་ཡོད་པ་དང་། སྐད་ནི་ “བྱིས་པའི་སྐད” ཡིན། གང་བདམས་ཀྱང་ནུས་པ་མེད།</translation>
    </message>
    <message>
        <source>On &quot;Translation&quot; the switch is off and the direction is &quot;EN-CN&quot;; what is chosen has no effect.</source>
        <translation>“ཡིག་སྒྱུར” ཞེས་པའི་ཤོག་ངོས་སུ་གློག་སྒོ་བརྒྱབ་ཡོད་པ་དང་། ཕྱོགས་ནི་ “དབྱིན་ཡིག་ནས་རྒྱ་ཡིག” ཡིན། གང་བདམས་ཀྱང་ནུས་པ་མེད།</translation>
    </message>
    <message>
        <source>&quot;Show in the Dock&quot; is on whatever the dock shows; switching it has no effect.</source>
        <translation>ལས་འགན་སྡེ་ཚན་དུ་གང་མངོན་ཡང་ “ལས་འགན་སྡེ་ཚན་དུ་མངོན་པ” ཞེས་པའི་གློག་སྒོ་ཕྱེ་ཡོད། བརྗེ་ཡང་ནུས་པ་མེད།</translation>
    </message>
    <message>
        <source>A voice test shows its wave until it is cancelled, without words and verdict.</source>
        <translation>སྐད་སྒྲ་ཚོད་ལྟ་དེས་མེད་པར་མ་བཟོས་བར་དུ་རླབས་རིས་མངོན་ཞིང་། ཡི་གེ་དང་མཇུག་འབྲས་མི་མངོན།</translation>
    </message>
    <message>
        <source>The hints of &quot;Speech to Text&quot;, &quot;Text to Speech&quot; and &quot;Translation&quot; have empty parentheses in place of the shortcut.</source>
        <translation>“སྐད་སྒྲ་ཡི་གེར་བསྒྱུར་བ” དང་ “ཡི་གེ་སྐད་སྒྲར་བསྒྱུར་བ” “ཡིག་སྒྱུར” བཅས་ཀྱི་གསལ་འདེབས་སུ་མྱུར་མཐེབ་ཀྱི་ཚབ་ཏུ་གུག་རྟགས་སྟོང་པ་ཡོད།</translation>
    </message>
    <message>
        <source>A voice test goes on with the old microphone when another becomes the default one.</source>
        <translation>མའེ་ཁེ་ཧྥེང་གཞན་ཞིག་སྔོན་སྒྲིག་ཏུ་གྱུར་ནའང་སྐད་སྒྲ་ཚོད་ལྟས་སྔོན་གྱི་མའེ་ཁེ་ཧྥེང་སྤྱོད་མུས་ཡིན།</translation>
    </message>
    <message>
        <source>A voice test ends at once: &quot;Network unavailable&quot;.</source>
        <translation>སྐད་སྒྲ་ཚོད་ལྟ་འཕྲལ་དུ་མཇུག་སྒྲིལ་ཏེ་ “དྲ་རྒྱ་སྤྱོད་མི་རུང་།” ཞེས་མངོན།</translation>
    </message>
    <message>
        <source>What is asked for comes only after the bus&apos;s time-out of 25 s.</source>
        <translation>རེ་བ་བཏོན་པའི་ནང་དོན་ནི་བརྒྱུད་ལམ་གྱི་སྐར་ཆ་ 25 རྫོགས་རྗེས་གཞི་ནས་མངོན།</translation>
    </message>
    <message>
        <source>The window stands still for the bus&apos;s time-out of 25 s.</source>
        <translation>སྒེའུ་ཁུང་དེ་བརྒྱུད་ལམ་གྱི་སྐར་ཆ་ 25 རྫོགས་བར་དུ་འགུལ་མི་ཐུབ།</translation>
    </message>
    <message>
        <source>Nothing.</source>
        <translation>འགྱུར་བ་ཅི་ཡང་མེད།</translation>
    </message>
    <message>
        <source>The window stands still until the answer comes.</source>
        <translation>ལན་མ་འབྱོར་བར་དུ་སྒེའུ་ཁུང་འགུལ་མི་ཐུབ།</translation>
    </message>
    <message>
        <source>What is asked for comes only with the answer.</source>
        <translation>ལན་འབྱོར་རྗེས་གཞི་ནས་རེ་བ་བཏོན་པའི་ནང་དོན་མངོན།</translation>
    </message>
</context>
</TS>
