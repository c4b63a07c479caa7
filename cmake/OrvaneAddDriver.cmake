# orvane_add_driver(NAME <target> [SOURCES <file>...] [CONSOLE <object library>] [PARTIAL])
#
# Makes the shared library <target> of the driver over the console whose port operations stand in
# the sources, in the object library, or in both. PARTIAL lets operations that stand in neither
# refuse every call. The exports are those of exports.map, whatever console is behind.
#
# In the sources and in the object library, a function outside any namespace that no header declares
# is an error: it is an operation whose name or arguments are mistyped.

set(ORVANE_EXPORT_MAP "${CMAKE_CURRENT_LIST_DIR}/exports.map")

# orvane_declared_operations_only(<target>)
function(orvane_declared_operations_only target)
    # What g++ calls a declaration, clang calls a prototype.
    set_property(TARGET ${target} APPEND PROPERTY COMPILE_OPTIONS
        $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Werror=missing-declarations>
        $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Werror=missing-prototypes>)
endfunction()

function(orvane_add_driver)
    cmake_parse_arguments(PARSE_ARGV 0 arg "PARTIAL" "NAME;CONSOLE" "SOURCES")
    if(NOT arg_NAME OR NOT (arg_CONSOLE OR arg_SOURCES))
        message(FATAL_ERROR "orvane_add_driver wants NAME, and SOURCES or CONSOLE")
    endif()
    if(arg_CONSOLE AND NOT TARGET ${arg_CONSOLE})
        message(FATAL_ERROR "orvane_add_driver wants ${arg_CONSOLE} to be there before the driver")
    endif()
    # A project around this one doesn't see the variable.
    set(ORVANE_EXPORT_MAP "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/exports.map")
    add_library(${arg_NAME} SHARED ${arg_SOURCES})
    target_link_libraries(${arg_NAME}
        PRIVATE orvane_driver ${arg_CONSOLE} orvane_flags INTERFACE orvane_host_headers)
    foreach(console IN ITEMS ${arg_NAME} ${arg_CONSOLE})
        orvane_declared_operations_only(${console})
    endforeach()
    if(arg_PARTIAL)
        target_link_libraries(${arg_NAME} PRIVATE orvane_refusing_console)
    endif()
    target_link_options(${arg_NAME} PRIVATE
        "LINKER:--version-script=${ORVANE_EXPORT_MAP}" LINKER:-Bsymbolic-functions LINKER:--as-needed
        LINKER:--gc-sections)
    if(NOT ORVANE_SANITIZERS)
        target_link_options(${arg_NAME} PRIVATE LINKER:--no-undefined)
    endif()
    set_target_properties(${arg_NAME} PROPERTIES LINKER_LANGUAGE CXX LINK_DEPENDS "${ORVANE_EXPORT_MAP}")
endfunction()
