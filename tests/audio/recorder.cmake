assistant_add_test(audiorecorder TIER audio BUSES REALTIME SANITIZERS
    SOURCES audiorecorder.cpp
    LIBRARIES assistantcontrol scriptedaudio test-support
    DEPENDS fakeaudioplugin recorderexit)

# Ends in the ways in which programs end; run by the test above.
add_executable(recorderexit recorderexit.cpp)
assistant_configure_target(recorderexit)
target_link_libraries(recorderexit PRIVATE assistantcontrol scriptedaudio)
target_compile_definitions(audiorecorder PRIVATE
    "RECORDEREXIT_PROGRAM=\"$<TARGET_FILE:recorderexit>\"")
