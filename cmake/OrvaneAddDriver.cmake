# orvane_add_driver(NAME <target> [SOURCES <file>...] [CONSOLE <object library>] [PARTIAL] [STACK])
#
# Builds the shared library <target>: the driver over the console whose port operations are defined
# in the sources, in the object library, or in both. With PARTIAL, operations that are defined in
# neither refuse every call. STACK makes room for layers between the driver and the console: the
# sources and those of the object library, as it is now, are compiled with their operations renamed.
# The exports are the same for every console. The object library gets the port's headers and is
# compiled as code of a shared library.
#
# In the sources and in the object library, a function outside any namespace that no header declares
# is an error: it is an operation whose name or arguments are mistyped.

# orvane_forbid_undeclared_functions(<target>)
function(orvane_forbid_undeclared_functions target)
    # What g++ calls a declaration, clang calls a prototype.
    set_property(TARGET ${target} APPEND PROPERTY COMPILE_OPTIONS
        $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Werror=missing-declarations>
        $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Werror=missing-prototypes>)
endfunction()

# orvane_rename_operations(<target>)
#
# Gives the port operations in the target's sources the names that the stack calls.
function(orvane_rename_operations target)
    cmake_path(SET header NORMALIZE
        "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../console/stack/renamed_operations.h")
    set_property(TARGET ${target} APPEND PROPERTY COMPILE_OPTIONS
        "SHELL:$<$<COMPILE_LANGUAGE:CXX>:-include \"${header}\">")
endfunction()

# orvane_rename_console(<console> <variable>)
#
# Creates, once, an object library of the console's sources with their operations renamed, and
# stores its name in the variable.
function(orvane_rename_console console variable)
    set(renamed ${console}_in_stack)
    set(${variable} ${renamed} PARENT_SCOPE)
    if(TARGET ${renamed})
        return()
    endif()
    get_target_property(folder ${console} SOURCE_DIR)
    get_target_property(sources ${console} SOURCES)
    list(TRANSFORM sources PREPEND "${folder}/" REGEX "^[^/$]")
    add_library(${renamed} OBJECT EXCLUDE_FROM_ALL ${sources})
    foreach(property COMPILE_DEFINITIONS COMPILE_FEATURES COMPILE_OPTIONS INCLUDE_DIRECTORIES
                     LINK_LIBRARIES)
        foreach(scope "" INTERFACE_)
            get_target_property(value ${console} ${scope}${property})
            if(value)
                set_property(TARGET ${renamed} PROPERTY ${scope}${property} "${value}")
            endif()
        endforeach()
    endforeach()
    orvane_rename_operations(${renamed})
endfunction()

function(orvane_add_driver)
    cmake_parse_arguments(PARSE_ARGV 0 arg "PARTIAL;STACK" "NAME;CONSOLE" "SOURCES")
    if(NOT arg_NAME OR NOT (arg_CONSOLE OR arg_SOURCES))
        message(FATAL_ERROR "orvane_add_driver needs NAME, and SOURCES or CONSOLE")
    endif()
    if(arg_CONSOLE AND NOT TARGET ${arg_CONSOLE})
        message(FATAL_ERROR "orvane_add_driver needs the target ${arg_CONSOLE} to be defined before the driver")
    endif()
    add_library(${arg_NAME} SHARED ${arg_SOURCES})
    foreach(target IN ITEMS ${arg_NAME} ${arg_CONSOLE})
        orvane_forbid_undeclared_functions(${target})
    endforeach()
    if(arg_CONSOLE)
        target_link_libraries(${arg_CONSOLE} PRIVATE orvane_headers orvane_flags)
    endif()
    set(consoles ${arg_CONSOLE})
    if(arg_PARTIAL)
        list(APPEND consoles orvane_refusing_console)
    endif()
    if(arg_STACK)
        orvane_rename_operations(${arg_NAME})
        foreach(console IN LISTS consoles)
            orvane_rename_console(${console} renamed)
            target_link_libraries(${arg_NAME} PRIVATE ${renamed})
        endforeach()
        set(consoles orvane_console_stack)
    endif()
    target_link_libraries(${arg_NAME}
        PRIVATE orvane_driver ${consoles} orvane_exports orvane_flags INTERFACE orvane_host_headers)
    target_link_options(${arg_NAME} PRIVATE
        LINKER:-Bsymbolic-functions LINKER:--as-needed LINKER:--gc-sections)
    if(NOT ORVANE_SANITIZERS)
        target_link_options(${arg_NAME} PRIVATE LINKER:--no-undefined)
    endif()
    set_target_properties(${arg_NAME} PROPERTIES LINKER_LANGUAGE CXX)
endfunction()
