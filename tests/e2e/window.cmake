# The control-center window with the built module, offscreen, on private buses with real services.

assistant_add_test(windowtour TIER e2e BUSES TIMEOUT 300
    SOURCES windowtour.cpp
    LIBRARIES test-support Qt5::Gui
    DEPENDS control-center assistant-control-plugin translations)
target_compile_definitions(windowtour PRIVATE
    WINDOW_PROGRAM="$<TARGET_FILE:control-center>"
    MODULE_FILE="$<TARGET_FILE:assistant-control-plugin>"
    CATALOGUES="${ASSISTANT_QM_DIR}"
    WITH_TRANSLATIONS="${PROJECT_SOURCE_DIR}/sandbox/with-translations")
