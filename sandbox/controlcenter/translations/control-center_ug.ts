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
    <name>controlcenter::BackButton</name>
    <message>
        <source>Back</source>
        <translation>قايتىش</translation>
    </message>
    <message>
        <source>Back to the list</source>
        <translation>تىزىملىككە قايتىش</translation>
    </message>
</context>
<context>
    <name>controlcenter::ControlCenterWindow</name>
    <message>
        <source>Control Center</source>
        <translation>كونترول مەركىزى</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>تېزلەتمە كۇنۇپكىلار</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>مۇلازىمەتلەر</translation>
    </message>
    <message>
        <source>Light or dark theme</source>
        <translation>يورۇق ياكى قاراڭغۇ ئۇسلۇب</translation>
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
    <message>
        <source>Clear search</source>
        <translation>ئىزدەش تېكىستىنى تازىلاش</translation>
    </message>
    <message>
        <source>Up and Down choose a result, Enter opens it</source>
        <translation>ئۈستى ۋە ئاستى كۇنۇپكىلىرى نەتىجىنى تاللايدۇ، Enter ئۇنى ئاچىدۇ</translation>
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
    <name>controlcenter::ServiceCard</name>
    <message>
        <source>Running</source>
        <translation>ئىجرا بولۇۋاتىدۇ</translation>
    </message>
    <message>
        <source>Not answering</source>
        <translation>جاۋاب بەرمەيۋاتىدۇ</translation>
    </message>
    <message>
        <source>Not running</source>
        <translation>ئىجرا بولمايۋاتىدۇ</translation>
    </message>
</context>
<context>
    <name>controlcenter::ServicesPage</name>
    <message>
        <source>Services</source>
        <translation>مۇلازىمەتلەر</translation>
    </message>
    <message>
        <source>Assistant</source>
        <translation>ياردەمچى</translation>
    </message>
    <message>
        <source>Dock icon</source>
        <translation>ۋەزىپە بالدىقى سىنبەلگىسى</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>تېزلەتمە كۇنۇپكىلار</translation>
    </message>
    <message>
        <source>AI service</source>
        <translation>AI مۇلازىمىتى</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>ئاۋاز</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>تور</translation>
    </message>
</context>
<context>
    <name>controlcenter::SheetWindow</name>
    <message>
        <source>All looks of “%1”</source>
        <translation>«%1» نىڭ بارلىق كۆرۈنۈشلىرى</translation>
    </message>
    <message>
        <source>Drawing: %1 of %2 languages</source>
        <translation>سىزىۋاتىدۇ: %2 تىلدىن %1</translation>
    </message>
    <message>
        <source>Nothing is marked.</source>
        <translation>ھېچنېمىگە بەلگە سېلىنمىدى.</translation>
    </message>
    <message>
        <source>Marked: %1</source>
        <translation>بەلگە سېلىنغىنى: %1</translation>
    </message>
</context>
<context>
    <name>controlcenter::ShortcutsPage</name>
    <message>
        <source>Edit</source>
        <translation>تەھرىرلەش</translation>
    </message>
    <message>
        <source>Restore defaults</source>
        <translation>كۆڭۈلدىكىگە قايتۇرۇش</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>يېنىۋېلىش</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>تامام</translation>
    </message>
    <message>
        <source>Press the new shortcut for “%1”. Escape keeps the old one.</source>
        <translation>«%1» نىڭ يېڭى تېزلەتمە كۇنۇپكىسىنى بېسىڭ. Esc كونىسىنى ساقلاپ قالىدۇ.</translation>
    </message>
    <message>
        <source>Used by “%1”. Press again to use it here instead.</source>
        <translation>«%1» ئىشلىتىۋاتىدۇ. قايتا باسسىڭىز، بۇ يەردە ئىشلىتىلىدۇ.</translation>
    </message>
    <message>
        <source>The shortcut for “%1” is now %2.</source>
        <translation>«%1» نىڭ تېزلەتمە كۇنۇپكىسى ئەمدى %2 بولدى.</translation>
    </message>
    <message>
        <source>The shortcut for “%1” was removed.</source>
        <translation>«%1» نىڭ تېزلەتمە كۇنۇپكىسى چىقىرىۋېتىلدى.</translation>
    </message>
    <message>
        <source>The shortcuts are the usual ones again.</source>
        <translation>تېزلەتمە كۇنۇپكىلار كۆڭۈلدىكى ھالىتىگە قايتۇرۇلدى.</translation>
    </message>
    <message>
        <source>The shortcuts are as they were before.</source>
        <translation>تېزلەتمە كۇنۇپكىلار ئەسلىدىكى ھالىتىگە قايتۇرۇلدى.</translation>
    </message>
    <message>
        <source>The shortcuts cannot be read or changed now: their service does not answer.</source>
        <translation>ھازىر تېزلەتمە كۇنۇپكىلارنى ئوقۇغىلى ياكى ئۆزگەرتكىلى بولمايدۇ: مۇلازىمىتى جاۋاب بەرمەيۋاتىدۇ.</translation>
    </message>
</context>
<context>
    <name>controlcenter::ThemeButton</name>
    <message>
        <source>Light</source>
        <translation>يورۇق</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>قاراڭغۇ</translation>
    </message>
    <message>
        <source>Follow the system</source>
        <translation>سىستېمىغا ئەگىشىش</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>ئۇسلۇب</translation>
    </message>
    <message>
        <source>Theme: %1</source>
        <translation>ئۇسلۇب: %1</translation>
    </message>
</context>
</TS>
