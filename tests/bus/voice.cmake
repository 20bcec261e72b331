add_subdirectory(voiceservice)
set(voicetestrun_kind REALTIME SANITIZERS) # waits for the ten seconds of a test
foreach(test voicesession voicerecogniser voicetestrun)
    assistant_add_test(${test} TIER bus BUSES ${${test}_kind}
        SOURCES ${test}.cpp voiceservice.h
        LIBRARIES assistantcontrol test-support scriptedaudio
        DEPENDS sandbox-voicescript fakeaudioplugin)
endforeach()

# The page over all of it.
foreach(test voicetestpage voicetestbad)
    assistant_add_test(${test} TIER bus BUSES TIMEOUT 240
        SOURCES ${test}.cpp voiceservice.h
        LIBRARIES assistantcontrol test-support scriptedaudio
        DEPENDS sandbox-voicescript sandbox-networkmanager fakeaudioplugin)
endforeach()
target_link_libraries(voicetestpage PRIVATE ${CMAKE_DL_LIBS})
