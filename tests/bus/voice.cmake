add_subdirectory(voiceservice)
foreach(test voicesession voicerecogniser voicetestrun)
    assistant_add_test(${test} TIER bus BUSES
        SOURCES ${test}.cpp voiceservice.h
        LIBRARIES assistantcontrol test-support scriptedaudio
        DEPENDS sandbox-voicescript fakeaudioplugin)
endforeach()

# The page over all of it.
assistant_add_test(voicetestpage TIER bus BUSES
    SOURCES voicetestpage.cpp voiceservice.h
    LIBRARIES assistantcontrol test-support scriptedaudio
    DEPENDS sandbox-voicescript sandbox-networkmanager fakeaudioplugin)
target_link_libraries(voicetestpage PRIVATE ${CMAKE_DL_LIBS})
