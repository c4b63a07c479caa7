# orvane_add_driver(NAME <target> [SOURCES <file>...] [CONSOLE <object library>] [PARTIAL])
#
# Makes the shared library <target> of the driver over the console whose port operations stand in
# the sources, in the object library, or in both. PARTIAL lets operations that stand in neither
# refuse every call. The exports are the same, whatever console is behind. The object library gets
# the port's headers and is compiled as code of a shared library.

function(orvane_add_driver)
    cmake_parse_arguments(PARSE_ARGV 0 arg "PARTIAL" "NAME;CONSOLE" "SOURCES")
    if(NOT arg_NAME OR NOT (arg_CONSOLE OR arg_SOURCES))
        message(FATAL_ERROR "orvane_add_driver wants NAME, and SOURCES or CONSOLE")
    endif()
    add_library(${arg_NAME} SHARED ${arg_SOURCES})
    target_link_libraries(${arg_NAME}
        PRIVATE orvane_driver ${arg_CONSOLE} orvane_exports orvane_flags INTERFACE orvane_host_headers)
    if(arg_CONSOLE)
        target_link_libraries(${arg_CONSOLE} PRIVATE orvane_headers orvane_flags)
    endif()
    if(arg_PARTIAL)
        target_link_libraries(${arg_NAME} PRIVATE orvane_refusing_console)
    endif()
    target_link_options(${arg_NAME} PRIVATE
        LINKER:-Bsymbolic-functions LINKER:--as-needed LINKER:--gc-sections)
    if(NOT ORVANE_SANITIZERS)
        target_link_options(${arg_NAME} PRIVATE LINKER:--no-undefined)
    endif()
    set_target_properties(${arg_NAME} PROPERTIES LINKER_LANGUAGE CXX)
endfunction()
