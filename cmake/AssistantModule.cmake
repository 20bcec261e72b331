# The module: every source of plugin/, pages/, proxy/, voice/ and bus/, compiled once.
#
# assistantcontrol is an OBJECT library, not a static one: the resource bundles register themselves
# from static initialisers that a linker would drop from an archive.

file(GLOB module_sources CONFIGURE_DEPENDS
    bus/*.h bus/*.cpp pages/*.h pages/*.cpp plugin/*.h plugin/*.cpp proxy/*.h proxy/*.cpp
    voice/*.h voice/*.cpp)

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
file(GLOB shortcut_sources CONFIGURE_DEPENDS
    pages/accessiblefactory.h pages/key*.h pages/key*.cpp pages/shortcut*.h pages/shortcut*.cpp
    pages/showntext.h pages/showntext.cpp)
list(REMOVE_ITEM module_sources ${shortcut_sources})
add_library(shortcutwidgets OBJECT ${shortcut_sources})
assistant_configure_target(shortcutwidgets)
target_include_directories(shortcutwidgets PUBLIC "${PROJECT_SOURCE_DIR}")
target_link_libraries(shortcutwidgets PUBLIC Qt5::Widgets zcc ztk)

add_library(assistantcontrol OBJECT ${module_sources} ${module_generated})
assistant_configure_target(assistantcontrol)
target_include_directories(assistantcontrol PUBLIC "${PROJECT_SOURCE_DIR}")
target_link_libraries(assistantcontrol
    PUBLIC Qt5::Widgets Qt5::Multimedia contracts zcc ztk zframeworkdbus ${CMAKE_DL_LIBS})
target_sources(assistantcontrol INTERFACE $<TARGET_OBJECTS:shortcutwidgets>)

add_library(assistant-control-plugin MODULE)
assistant_configure_target(assistant-control-plugin)
target_link_libraries(assistant-control-plugin PRIVATE assistantcontrol)
target_sources(assistant-control-plugin PRIVATE $<TARGET_OBJECTS:assistantcontrol>)
if(CMAKE_CXX_FLAGS MATCHES "--coverage")
    foreach(target shortcutwidgets assistantcontrol) # gcov looks for the sources where they are
        target_compile_options(${target} PRIVATE
            "-fprofile-prefix-map=${PROJECT_SOURCE_DIR}/=${PROJECT_SOURCE_DIR}/")
    endforeach()
endif()
set_target_properties(assistant-control-plugin PROPERTIES LINKER_LANGUAGE CXX AUTOMOC OFF)
target_link_options(assistant-control-plugin PRIVATE
    "-Wl,--version-script=${PROJECT_SOURCE_DIR}/plugin/exports.map")
set_target_properties(assistant-control-plugin PROPERTIES
    LINK_DEPENDS "${PROJECT_SOURCE_DIR}/plugin/exports.map")

set(ASSISTANT_MODULE_DIR "${CMAKE_INSTALL_LIBDIR}/zde-control-center/modules" CACHE STRING
    "Where the control center looks for modules, absolute or below the prefix")
if(ZDE_PLATFORM_BUNDLED)
    install(CODE "message(STATUS \"Built against platform/: the module loads where the control center \"
        \"brings zcc, ztk and zframeworkdbus, as the sandbox's does. Build one for a desktop against \"
        \"its own, with ZDE_PLATFORM=system.\")" COMPONENT module)
endif()
install(TARGETS assistant-control-plugin
    LIBRARY DESTINATION "${ASSISTANT_MODULE_DIR}" COMPONENT module)
# For who implements the services. In the shared folder of interfaces they would clash with the services'
# own packages.
install(DIRECTORY contracts DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT module
    FILES_MATCHING PATTERN "*.xml")

include(AssistantTranslations)
