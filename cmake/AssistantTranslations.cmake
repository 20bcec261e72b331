# Message catalogues: one TS file per language, and the .qm files under the names that the plugin
# asks for.

set(ASSISTANT_LANGUAGES zh_CN bo ug zh_HK en_US zh_TW en)
set(ASSISTANT_TEXT_SOURCES plugin proxy pages voice) # the folders with texts for the user
set(ASSISTANT_QM_DIR "${PROJECT_BINARY_DIR}/translations")

# The plugin never asks for en_US: every English locale takes the file of "en".
set(qm_files)
foreach(language zh_CN zh_HK zh_TW bo ug en)
    set(qm "assistant-control-plugin_${language}.qm")
    if(language STREQUAL "en")
        set(qm "a${qm}") # the doubled "a" is the name that the plugin asks for
    endif()
    set(ts "${PROJECT_SOURCE_DIR}/translations/assistant-control-plugin_${language}.ts")
    add_custom_command(OUTPUT "${ASSISTANT_QM_DIR}/${qm}"
        COMMAND ${CMAKE_COMMAND} -E make_directory "${ASSISTANT_QM_DIR}"
        COMMAND Qt5::lrelease -silent "${ts}" -qm "${ASSISTANT_QM_DIR}/${qm}"
        DEPENDS "${ts}" VERBATIM)
    list(APPEND qm_files "${ASSISTANT_QM_DIR}/${qm}")
endforeach()
add_custom_target(translations ALL DEPENDS ${qm_files})
# The module asks for them in this folder only, whatever the prefix.
install(CODE "if(NOT CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
        message(STATUS \"The catalogues do not go to the prefix, but where the module looks for them. \"
            \"Without them (--component module, --component sandbox) its texts are English.\")
    endif()" COMPONENT translations)
install(FILES ${qm_files}
    DESTINATION /usr/share/TavrenAIAssistant/translations COMPONENT translations)

# Refreshes the TS files from the sources. Without line numbers in them, a catalogue changes only when a
# text does.
set(ts_files)
foreach(language ${ASSISTANT_LANGUAGES})
    list(APPEND ts_files "translations/assistant-control-plugin_${language}.ts")
endforeach()
add_custom_target(update-translations
    COMMAND Qt5::lupdate -locations none -no-obsolete ${ASSISTANT_TEXT_SOURCES} -I .
            -ts ${ts_files}
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" VERBATIM)
