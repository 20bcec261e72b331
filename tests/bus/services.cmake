# The sandbox's services, what they are made of, and the recorder of the bus.
foreach(test assistantservice busrecorder desktopservices dockservice sandboxcontrol servicelifecycle)
    assistant_add_test(${test} TIER bus BUSES
        SOURCES services/${test}.cpp
        LIBRARIES test-support)
endforeach()
target_compile_definitions(sandboxcontrol PRIVATE
    SANDBOX_CONTROL="$<TARGET_FILE:sandbox-control>")
target_compile_definitions(servicelifecycle PRIVATE
    SANDBOX_SERVICES_DIR="${PROJECT_BINARY_DIR}/sandbox/services"
    BUS_CONFIG="${PROJECT_SOURCE_DIR}/tests/support/bus.conf")

# The base of the services on its own, with contracts that have every type.
set(contracts "${PROJECT_SOURCE_DIR}/contracts")
set(callgate_generated)
qt5_add_dbus_adaptor(callgate_generated "${contracts}/com.corvane.aiservice.session.xml"
    tests/bus/services/recognitionstub.h RecognitionStub callgatesessionadaptor SessionsAdaptor)
qt5_add_dbus_adaptor(callgate_generated "${contracts}/com.corvane.aiservice.iat.xml"
    tests/bus/services/recognitionstub.h RecognitionStub callgateiatadaptor RecognitionAdaptor)
foreach(interface session iat)
    qt5_add_dbus_interface(callgate_generated "${contracts}/com.corvane.aiservice.${interface}.xml"
        callgate${interface}interface)
endforeach()
assistant_add_test(callgate TIER bus BUSES
    SOURCES services/callgate.cpp services/recognitionstub.h ${callgate_generated}
    LIBRARIES sandbox-common)
target_include_directories(callgate PRIVATE "${CMAKE_CURRENT_BINARY_DIR}")
