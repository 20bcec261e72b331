# The message catalogues, the two resource bundles, and the compiled catalogues as they are installed.

assistant_add_test(translationscatalogues TIER unit
    SOURCES translationscatalogues.cpp translationsreader.h translationsreader.cpp
    LIBRARIES Qt5::Core)
string(REPLACE ";" "\",\"" text_sources "${ASSISTANT_TEXT_SOURCES}")
target_compile_definitions(translationscatalogues PRIVATE
    SOURCE_ROOT="${PROJECT_SOURCE_DIR}"
    TEXT_SOURCES="${text_sources}"
    LUPDATE="$<TARGET_FILE:Qt5::lupdate>")

assistant_add_test(translationsbundles TIER unit
    SOURCES translationsbundles.cpp translationsreader.h translationsreader.cpp
    LIBRARIES assistantcontrol)
target_compile_definitions(translationsbundles PRIVATE SOURCE_ROOT="${PROJECT_SOURCE_DIR}")

assistant_add_test(translationsinstall TIER unit
    SOURCES translationsinstall.cpp
    LIBRARIES Qt5::Core
    DEPENDS translations)
target_compile_definitions(translationsinstall PRIVATE
    CMAKE_PROGRAM="${CMAKE_COMMAND}"
    BUILD_ROOT="${PROJECT_BINARY_DIR}")
