assistant_add_test(voicetestpanel TIER gui BUSES
    SOURCES voicetestpanel.cpp
    LIBRARIES assistantcontrol test-support
    DEPENDS sandbox-networkmanager sandbox-aiservice)

assistant_add_test(voicetestends TIER gui BUSES
    SOURCES voicetestends.cpp
    LIBRARIES test-support
    DEPENDS sandbox-networkmanager sandbox-voicescript fakeaudioplugin voicetestexit)

# Ends in the middle of a voice test; run by the test above.
add_executable(voicetestexit voicetestexit.cpp)
assistant_configure_target(voicetestexit)
target_link_libraries(voicetestexit PRIVATE assistantcontrol scriptedaudio)
target_compile_definitions(voicetestends PRIVATE
    "VOICETESTEXIT_PROGRAM=\"$<TARGET_FILE:voicetestexit>\"")
