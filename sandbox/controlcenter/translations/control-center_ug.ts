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
    <name>controlcenter::CallList</name>
    <message>
        <source>Calls to</source>
        <translation>چاقىرىلغان مۇلازىمەت</translation>
    </message>
    <message>
        <source>All services</source>
        <translation>بارلىق مۇلازىمەتلەر</translation>
    </message>
    <message>
        <source>Calls</source>
        <translation>چاقىرىشلار</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>كۆچۈرۈش</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>تازىلاش</translation>
    </message>
    <message>
        <source>No calls yet</source>
        <translation>تېخى چاقىرىش يوق</translation>
    </message>
</context>
<context>
    <name>controlcenter::CallModel</name>
    <message>
        <source>no reply expected</source>
        <translation>جاۋاب كۈتۈلمەيدۇ</translation>
    </message>
    <message>
        <source>reply expected</source>
        <translation>جاۋاب كۈتۈلىدۇ</translation>
    </message>
    <message>
        <source>no answer yet</source>
        <translation>تېخى جاۋاب يوق</translation>
    </message>
    <message>
        <source>error: %1</source>
        <translation>خاتالىق: %1</translation>
    </message>
    <message>
        <source>answered</source>
        <translation>جاۋاب بېرىلدى</translation>
    </message>
    <message>
        <source>answer: %1</source>
        <translation>جاۋاب: %1</translation>
    </message>
</context>
<context>
    <name>controlcenter::ControlCenterWindow</name>
    <message>
        <source>Control Center</source>
        <translation>كونترول مەركىزى</translation>
    </message>
    <message>
        <source>Light or dark theme</source>
        <translation>يورۇق ياكى قاراڭغۇ ئۇسلۇب</translation>
    </message>
</context>
<context>
    <name>controlcenter::FaultTexts</name>
    <message>
        <source>Slow by %1 s</source>
        <translation>%1 سېكۇنت كېچىكىدۇ</translation>
    </message>
    <message>
        <source>Refusing</source>
        <translation>رەت قىلىدۇ</translation>
    </message>
    <message>
        <source>Wrong types</source>
        <translation>تىپى خاتا</translation>
    </message>
    <message>
        <source>Hung</source>
        <translation>قېتىپ قالغان</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>توختىتىلغان</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>ئىجرا بولۇۋاتىدۇ</translation>
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
    <name>controlcenter::OwnPages</name>
    <message>
        <source>Shortcuts</source>
        <translation>تېزلەتمە كۇنۇپكىلار</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>مۇلازىمەتلەر</translation>
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
    <message>
        <source>World</source>
        <translation>مۇھىت</translation>
    </message>
    <message>
        <source>Steer the services and whatever else the settings depend on (F12)</source>
        <translation>مۇلازىمەتلەرنى ۋە تەڭشەكلەر تايىنىدىغان باشقا نەرسىلەرنى تىزگىنلەش (F12)</translation>
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
        <source>Theme</source>
        <translation>ئۇسلۇب</translation>
    </message>
    <message>
        <source>Theme: %1</source>
        <translation>ئۇسلۇب: %1</translation>
    </message>
</context>
<context>
    <name>controlcenter::ThemeChoice</name>
    <message>
        <source>Dark</source>
        <translation>قاراڭغۇ</translation>
    </message>
    <message>
        <source>High contrast</source>
        <translation>يۇقىرى سېلىشتۇرما</translation>
    </message>
    <message>
        <source>Follow the system</source>
        <translation>سىستېمىغا ئەگىشىش</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>يورۇق</translation>
    </message>
</context>
<context>
    <name>controlcenter::WorldDrawer</name>
    <message>
        <source>World</source>
        <translation>مۇھىت</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>تاقاش</translation>
    </message>
    <message>
        <source>Services</source>
        <translation>مۇلازىمەتلەر</translation>
    </message>
    <message>
        <source>Surroundings</source>
        <translation>ئەتراپ</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>ئاۋاز</translation>
    </message>
    <message>
        <source>Voice in noise</source>
        <translation>شاۋقۇن ئىچىدىكى ئاۋاز</translation>
    </message>
    <message>
        <source>Too loud</source>
        <translation>ئاۋازى بەك يۇقىرى</translation>
    </message>
    <message>
        <source>Too quiet</source>
        <translation>ئاۋازى بەك تۆۋەن</translation>
    </message>
    <message>
        <source>Silence</source>
        <translation>جىمجىت</translation>
    </message>
    <message>
        <source>Unplugged</source>
        <translation>چىقىرىۋېتىلگەن</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>مىكروفون</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>باغلىنىش</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>باغلاندى</translation>
    </message>
    <message>
        <source>Local network only</source>
        <translation>پەقەت يەرلىك تور</translation>
    </message>
    <message>
        <source>Connecting</source>
        <translation>باغلىنىۋاتىدۇ</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>ئۈزۈلدى</translation>
    </message>
    <message>
        <source>Icon in the dock</source>
        <translation>ۋەزىپە بالدىقىدىكى سىنبەلگە</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>كۆرۈنىدۇ</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>يوشۇرۇن</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>كۆرۈنۈش</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>ئۇسلۇب</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>تىل</translation>
    </message>
    <message>
        <source>Text size</source>
        <translation>خەت چوڭلۇقى</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>يۆنىلىش</translation>
    </message>
    <message>
        <source>Left to right</source>
        <translation>سولدىن ئوڭغا</translation>
    </message>
    <message>
        <source>Right to left</source>
        <translation>ئوڭدىن سولغا</translation>
    </message>
    <message>
        <source>The window restarts in the language that is chosen.</source>
        <translation>كۆزنەك تاللانغان تىلدا قايتا قوزغىلىدۇ.</translation>
    </message>
    <message>
        <source>By language</source>
        <translation>تىلغا قاراپ</translation>
    </message>
</context>
<context>
    <name>doctor::Contract</name>
    <message>
        <source>&quot;Voice Wakeup&quot; and &quot;OneShot&quot; can be switched, without effect.</source>
        <translation>«ئاۋاز بىلەن ئويغىتىش» ۋە «ئويغىتىش سۆزى بىلەن بۇيرۇقنى بىراقلا ئېيتىش» نى ئالماشتۇرغىلى بولىدۇ، لېكىن ئۈنۈمى يوق.</translation>
    </message>
    <message>
        <source>On &quot;Speech to Text&quot; the switch is off and the language is &quot;中文-普通话&quot;; what is chosen has no effect.</source>
        <translation>«ئاۋازنى تېكىستكە ئايلاندۇرۇش» بېتىدە ئالماشتۇرغۇچ تاقاق، تىل «خەنزۇچە-ئورتاق تىل»؛ تاللىغاننىڭ ئۈنۈمى يوق.</translation>
    </message>
    <message>
        <source>On &quot;Text to Speech&quot; both switches are off and the voice is &quot;Children&quot;; what is chosen has no effect.</source>
        <translation>«تېكىستنى ئاۋازغا ئايلاندۇرۇش» بېتىدە ئىككىلا ئالماشتۇرغۇچ تاقاق، ئاۋاز «بالا ئاۋازى»؛ تاللىغاننىڭ ئۈنۈمى يوق.</translation>
    </message>
    <message>
        <source>On &quot;Translation&quot; the switch is off and the direction is &quot;EN-CN&quot;; what is chosen has no effect.</source>
        <translation>«تەرجىمە» بېتىدە ئالماشتۇرغۇچ تاقاق، يۆنىلىش «ئىنگلىزچىدىن خەنزۇچىغا»؛ تاللىغاننىڭ ئۈنۈمى يوق.</translation>
    </message>
    <message>
        <source>&quot;Show in the Dock&quot; is on whatever the dock shows; switching it has no effect.</source>
        <translation>ۋەزىپە بالدىقى نېمىنى كۆرسەتسىمۇ «ۋەزىپە بالدىقىدا كۆرسىتىش» ئوچۇق تۇرىدۇ؛ ئالماشتۇرۇشنىڭ ئۈنۈمى يوق.</translation>
    </message>
    <message>
        <source>A voice test shows its wave until it is cancelled, without words and verdict.</source>
        <translation>ئاۋاز سىنىقى ئەمەلدىن قالدۇرۇلغۇچە دولقۇننىلا كۆرسىتىدۇ، سۆز ۋە نەتىجە چىقمايدۇ.</translation>
    </message>
    <message>
        <source>The hints of &quot;Speech to Text&quot;, &quot;Text to Speech&quot; and &quot;Translation&quot; have empty parentheses in place of the shortcut.</source>
        <translation>«ئاۋازنى تېكىستكە ئايلاندۇرۇش»، «تېكىستنى ئاۋازغا ئايلاندۇرۇش» ۋە «تەرجىمە» نىڭ ئەسكەرتىشلىرىدە تېزلەتمە كۇنۇپكىنىڭ ئورنىدا قۇرۇق تىرناق بار.</translation>
    </message>
    <message>
        <source>A voice test goes on with the old microphone when another becomes the default one.</source>
        <translation>باشقا مىكروفون سۈكۈتتىكى مىكروفون بولۇپ قالسىمۇ ئاۋاز سىنىقى بۇرۇنقى مىكروفون بىلەن داۋاملىشىدۇ.</translation>
    </message>
    <message>
        <source>A voice test ends at once: &quot;Network unavailable&quot;.</source>
        <translation>ئاۋاز سىنىقى دەرھال ئاخىرلىشىدۇ: «تورنى ئىشلەتكىلى بولمايدۇ».</translation>
    </message>
    <message>
        <source>What is asked for comes only after the bus&apos;s time-out of 25 s.</source>
        <translation>سورالغان نەرسە پەقەت باش لىنىيەنىڭ 25 سېكۇنتلۇق ۋاقىت چېكىدىن كېيىن كېلىدۇ.</translation>
    </message>
    <message>
        <source>The window stands still for the bus&apos;s time-out of 25 s.</source>
        <translation>كۆزنەك باش لىنىيەنىڭ 25 سېكۇنتلۇق ۋاقىت چېكىگىچە مىدىرلىماي تۇرىدۇ.</translation>
    </message>
    <message>
        <source>Nothing.</source>
        <translation>ھېچقانداق ئۆزگىرىش يوق.</translation>
    </message>
    <message>
        <source>The window stands still until the answer comes.</source>
        <translation>جاۋاب كەلگۈچە كۆزنەك مىدىرلىماي تۇرىدۇ.</translation>
    </message>
    <message>
        <source>What is asked for comes only with the answer.</source>
        <translation>سورالغان نەرسە جاۋاب كەلگەندىلا كېلىدۇ.</translation>
    </message>
</context>
</TS>
