# The module: every source of plugin/, pages/, proxy/, voice/ and bus/, compiled once.
#
# assistantcontrol is an OBJECT library, not a static one: the resource bundles register themselves
# from static initialisers that a linker would drop from an archive.

set(module_headers
    bus/buscalls.h
    bus/serviceproxy.h
    pages/assistantsettingwidget.h
    pages/pagelayout.h
    pages/texttranslatesettingwidget.h
    pages/themedtip.h
    pages/voiceiatsettingwidget.h
    pages/voicetestverdict.h
    pages/voicettssettingwidget.h
    pages/wordslabel.h
    plugin/tavrenaiassitantcontrolplugin.h
    plugin/assistzlistview.h
    plugin/pagetable.h
    plugin/thirdlistwidget.h
    proxy/assistantstateproxy.h
    voice/aiservice.h
    voice/aiservicesession.h
    voice/aqcwrapper.h
    voice/audioinfo.h
    voice/audiorecorder.h
    voice/iatwapper.h
    voice/processwide.h
    voice/secondclickfilter.h
    voice/voiceanimationwidget.h
    voice/voicetestregistry.h
    voice/waveaccessible.h
    voice/wavelevel.h)
set(module_sources
    bus/buscalls.cpp
    bus/serviceproxy.cpp
    pages/assistantsettingwidget.cpp
    pages/pagelayout.cpp
    pages/texttranslatesettingwidget.cpp
    pages/themedtip.cpp
    pages/voiceiatsettingwidget.cpp
    pages/voicetestpanel.cpp
    pages/voicetestverdict.cpp
    pages/voicettssettingwidget.cpp
    pages/wordslabel.cpp
    plugin/assistzlistview.cpp
    plugin/pagetable.cpp
    plugin/tavrenaiassitantcontrolplugin.cpp
    plugin/thirdlistwidget.cpp
    proxy/assistantstateproxy.cpp
    proxy/shortcutlookup.cpp
    voice/aiservicesession.cpp
    voice/aqcwrapper.cpp
    voice/audioinfo.cpp
    voice/audiorecorder.cpp
    voice/iatwapper.cpp
    voice/secondclickfilter.cpp
    voice/voiceanimationwidget.cpp
    voice/voicetestregistry.cpp
    voice/waveaccessible.cpp
    voice/wavelevel.cpp)

# Every file of both bundles is stored zlib-compressed, the small ones too: Qt before 5.13 knows nothing
# else, not even the option.
set(module_resource_options --threshold 0 --compress 9)
if(Qt5Core_VERSION VERSION_GREATER_EQUAL 5.13)
    list(APPEND module_resource_options --compress-algo zlib)
endif()
qt5_add_resources(module_generated plugin/voice.qrc plugin/translation.qrc
    OPTIONS ${module_resource_options})

# The shortcut widgets and what they need are compiled apart, so that the sandbox's window can show them
# without taking in the rest of the module. Who links assistantcontrol gets them with it.
add_library(shortcutwidgets OBJECT
    pages/accessiblefactory.h
    pages/keydisplaynames.h
    pages/keylabel.cpp
    pages/keylabel.h
    pages/shortcutitem.cpp
    pages/shortcutitem.h
    pages/shortcutitemaccessible.cpp
    pages/shortcutitemaccessible.h
    pages/shortcutkey.cpp
    pages/shortcutkey.h
    pages/showntext.cpp
    pages/showntext.h)
assistant_configure_target(shortcutwidgets)
target_include_directories(shortcutwidgets PUBLIC "${PROJECT_SOURCE_DIR}")
target_link_libraries(shortcutwidgets PUBLIC Qt5::Widgets zcc ztk)

add_library(assistantcontrol OBJECT ${module_headers} ${module_sources} ${module_generated})
assistant_configure_target(assistantcontrol)
target_include_directories(assistantcontrol PUBLIC "${PROJECT_SOURCE_DIR}")
target_link_libraries(assistantcontrol
    PUBLIC Qt5::Widgets Qt5::Multimedia contracts zcc ztk zframeworkdbus ${CMAKE_DL_LIBS})
target_sources(assistantcontrol INTERFACE $<TARGET_OBJECTS:shortcutwidgets>)

add_library(assistant-control-plugin MODULE)
assistant_configure_target(assistant-control-plugin)
target_link_libraries(assistant-control-plugin PRIVATE assistantcontrol)
target_sources(assistant-control-plugin PRIVATE $<TARGET_OBJECTS:assistantcontrol>)
set_target_properties(assistant-control-plugin PROPERTIES LINKER_LANGUAGE CXX AUTOMOC OFF)
target_link_options(assistant-control-plugin PRIVATE
    "-Wl,--version-script=${PROJECT_SOURCE_DIR}/plugin/exports.map")
set_target_properties(assistant-control-plugin PROPERTIES
    LINK_DEPENDS "${PROJECT_SOURCE_DIR}/plugin/exports.map")

install(TARGETS assistant-control-plugin
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}/zde-control-center/modules" COMPONENT module)

include(AssistantTranslations)
