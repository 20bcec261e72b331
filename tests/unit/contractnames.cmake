assistant_add_test(contractnames TIER unit SOURCES contractnames.cpp LIBRARIES Qt5::Core)
target_compile_definitions(contractnames PRIVATE
    SOURCE_ROOT="${PROJECT_SOURCE_DIR}"
    CONTRACT_HEADER="${PROJECT_BINARY_DIR}/contracts/contract.h")
