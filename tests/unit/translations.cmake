# The message catalogues, the two resource bundles, and the compiled catalogues as they are installed.

add_library(translationsreader STATIC translationsreader.h translationsreader.cpp)
assistant_configure_target(translationsreader)
target_include_directories(translationsreader PUBLIC "${PROJECT_SOURCE_DIR}")
target_link_libraries(translationsreader PUBLIC Qt5::Core)

assistant_add_test(translationscatalogues TIER unit
    SOURCES translationscatalogues.cpp
    LIBRARIES translationsreader)
string(REPLACE ";" "\",\"" text_sources "${ASSISTANT_TEXT_SOURCES}")
target_compile_definitions(translationscatalogues PRIVATE
    SOURCE_ROOT="${PROJECT_SOURCE_DIR}"
    TEXT_SOURCES="${text_sources}"
    LUPDATE="$<TARGET_FILE:Qt5::lupdate>")

assistant_add_test(translationsbundles TIER unit
    SOURCES translationsbundles.cpp
    LIBRARIES assistantcontrol translationsreader)
target_compile_definitions(translationsbundles PRIVATE SOURCE_ROOT="${PROJECT_SOURCE_DIR}")

assistant_add_test(translationsinstall TIER unit
    SOURCES translationsinstall.cpp
    LIBRARIES Qt5::Core
    DEPENDS translations)
target_compile_definitions(translationsinstall PRIVATE
    CMAKE_PROGRAM="${CMAKE_COMMAND}"
    BUILD_ROOT="${PROJECT_BINARY_DIR}")
