assistant_add_test(processwide TIER unit SOURCES processwide.cpp LIBRARIES assistantcontrol)
assistant_add_test(voicelevel TIER unit SOURCES voicelevel.cpp LIBRARIES assistantcontrol)
assistant_add_test(voicerecognition TIER unit SOURCES voicerecognition.cpp LIBRARIES assistantcontrol)
assistant_add_test(voicewave TIER unit SOURCES voicewave.cpp LIBRARIES assistantcontrol)
