add_subdirectory(voiceservice)
foreach(test voicesession voicerecogniser voicetestrun)
    assistant_add_test(${test} TIER bus BUSES
        SOURCES ${test}.cpp
        LIBRARIES assistantcontrol test-support scriptedaudio
        DEPENDS sandbox-voicescript fakeaudioplugin)
endforeach()
