foreach(test shortcutcaps shortcutrow shortcutrough)
    assistant_add_test(${test} TIER gui
        SOURCES ${test}.cpp shortcutparts.h
        LIBRARIES assistantcontrol)
endforeach()
