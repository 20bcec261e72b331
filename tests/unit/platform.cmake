foreach(topic theme fonts icons iconfolder list buttons rows style)
    assistant_add_test(platform${topic} TIER unit
        SOURCES platform${topic}.cpp platformpictures.h LIBRARIES ztk zcc)
endforeach()

# Icons as a plugin brings them: in a bundle that is registered while the program runs.
qt5_add_binary_resources(platformicons_bundle platformicons.qrc
    DESTINATION "${CMAKE_CURRENT_BINARY_DIR}/platformicons.rcc")
add_dependencies(platformicons platformicons_bundle)
target_compile_definitions(platformicons PRIVATE
    ICON_BUNDLE="${CMAKE_CURRENT_BINARY_DIR}/platformicons.rcc")

assistant_add_test(platformaudio TIER bus BUSES
    SOURCES platformaudio.cpp LIBRARIES zframeworkdbus test-support)
