# orvane_add_driver(NAME <target> CONSOLE <object library>)
#
# Makes the shared library <target> of the driver over the console whose port operations stand in
# the object library. Its exports are those of exports.map, whatever console is behind.

set(ORVANE_EXPORT_MAP "${CMAKE_CURRENT_LIST_DIR}/exports.map")

function(orvane_add_driver)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "NAME;CONSOLE" "")
    if(NOT arg_NAME OR NOT arg_CONSOLE)
        message(FATAL_ERROR "orvane_add_driver wants NAME and CONSOLE")
    endif()
    add_library(${arg_NAME} SHARED)
    target_link_libraries(${arg_NAME} PRIVATE orvane_driver ${arg_CONSOLE})
    target_link_options(${arg_NAME} PRIVATE
        "LINKER:--version-script=${ORVANE_EXPORT_MAP}" LINKER:-Bsymbolic-functions LINKER:--as-needed
        LINKER:--gc-sections)
    if(NOT ORVANE_SANITIZERS)
        target_link_options(${arg_NAME} PRIVATE LINKER:--no-undefined)
    endif()
    set_target_properties(${arg_NAME} PROPERTIES LINKER_LANGUAGE CXX LINK_DEPENDS "${ORVANE_EXPORT_MAP}")
endfunction()
