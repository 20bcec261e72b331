# The module's and the window's own pages in every language: nothing is cut off or lies over another.
assistant_add_test(looks TIER gui BUSES TIMEOUT 300
    SOURCES looks.cpp
    LIBRARIES controlcenterwindow test-support
    DEPENDS assistant-control-plugin translations sandbox)
target_compile_definitions(looks PRIVATE
    CATALOGUES="${ASSISTANT_QM_DIR}"
    MODULE_FILE="$<TARGET_FILE:assistant-control-plugin>")
