# Compiles the icons named in symbols.txt into the resource "symbols"; sets symbol_sources.
set(QUORVEL_ICON_SET "${CMAKE_SOURCE_DIR}/.cache/f7/icons.json"
    CACHE FILEPATH "The icon set, as scripts/fetch-icons puts it there")
if(NOT EXISTS ${QUORVEL_ICON_SET})
    message(FATAL_ERROR "The icon set ${QUORVEL_ICON_SET} is missing. Run scripts/fetch-icons first.")
endif()
find_program(QUORVEL_PYTHON python3 REQUIRED PATHS /usr/bin NO_DEFAULT_PATH)

set(symbol_folder ${CMAKE_CURRENT_BINARY_DIR}/symbols)
set(symbol_table ${CMAKE_CURRENT_LIST_DIR}/symbols.txt)
set(symbol_script ${CMAKE_CURRENT_LIST_DIR}/../../cmake/extract_symbols.py)
set(symbol_sources ${symbol_folder}/qrc_symbols.cpp)
add_custom_command(OUTPUT ${symbol_sources}
    COMMAND ${QUORVEL_PYTHON} ${symbol_script} ${QUORVEL_ICON_SET} ${symbol_table} ${symbol_folder}
    COMMAND Qt6::rcc --name symbols --output ${symbol_sources} ${symbol_folder}/symbols.qrc
    DEPENDS ${QUORVEL_ICON_SET} ${symbol_table} ${symbol_script}
    COMMENT "Compiling the icons"
    VERBATIM)
