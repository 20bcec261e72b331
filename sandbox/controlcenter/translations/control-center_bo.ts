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
    <name>controlcenter::ControlCenterWindow</name>
    <message>
        <source>Control Center</source>
        <translation>ཚོད་འཛིན་ལྟེ་གནས</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>མྱུར་མཐེབ</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>ཞབས་ཞུ</translation>
    </message>
    <message>
        <source>Light or dark theme</source>
        <translation>མདོག་དཀར་བའམ་ནག་པའི་བརྗོད་གཞི</translation>
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
        <source>Light</source>
        <translation>མདོག་དཀར་པོ</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>མདོག་ནག་པོ</translation>
    </message>
    <message>
        <source>Follow the system</source>
        <translation>མ་ལག་དང་བསྟུན་པ</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>བརྗོད་གཞི</translation>
    </message>
    <message>
        <source>Theme: %1</source>
        <translation>བརྗོད་གཞི: %1</translation>
    </message>
</context>
</TS>
