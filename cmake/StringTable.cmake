# Placeholder until the string table generator lands.
set(TAVRIN_GENERATED_DIR ${CMAKE_BINARY_DIR}/generated)
set(TAVRIN_STRING_TABLE_SOURCE)
set(TAVRIN_RESOURCE_SCRIPT)
