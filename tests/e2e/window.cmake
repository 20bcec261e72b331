# The control-center window with the built module, offscreen, on private buses with real services.

add_library(windowprogram STATIC windowprogram.cpp)
assistant_configure_target(windowprogram)
target_link_libraries(windowprogram PUBLIC Qt5::Gui)
target_include_directories(windowprogram PUBLIC "${PROJECT_SOURCE_DIR}")
target_compile_definitions(windowprogram
    PRIVATE
        CATALOGUES="${ASSISTANT_QM_DIR}"
        WINDOW_PROGRAM="$<TARGET_FILE:control-center>"
    PUBLIC
        MODULE_FILE="$<TARGET_FILE:assistant-control-plugin>"
        RUN_SCRIPT="${PROJECT_SOURCE_DIR}/scripts/run"
        WITH_TRANSLATIONS="${PROJECT_SOURCE_DIR}/sandbox/with-translations")
add_dependencies(windowprogram control-center assistant-control-plugin translations)

assistant_add_test(windowtour TIER e2e BUSES TIMEOUT 300
    SOURCES windowtour.cpp
    LIBRARIES windowprogram virtualmicrophone)

assistant_add_test(windowvoicetour TIER e2e BUSES TIMEOUT 300
    SOURCES windowvoicetour.cpp
    LIBRARIES windowprogram virtualmicrophone)

assistant_add_test(windowwaiting TIER e2e BUSES
    SOURCES windowwaiting.cpp
    LIBRARIES controlcenterwindow test-support
    DEPENDS assistant-control-plugin)
target_compile_definitions(windowwaiting PRIVATE
    MODULE_FILE="$<TARGET_FILE:assistant-control-plugin>")
