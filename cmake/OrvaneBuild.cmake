# What every target of the project compiles with: the toolkit, the include folders, the flags.

find_package(wxWidgets 3.2 REQUIRED COMPONENTS core base)
find_package(Threads REQUIRED)

add_library(orvane_toolkit INTERFACE)
target_include_directories(orvane_toolkit SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
target_compile_definitions(orvane_toolkit INTERFACE ${wxWidgets_DEFINITIONS})
target_link_libraries(orvane_toolkit INTERFACE ${wxWidgets_LIBRARIES} Threads::Threads)

add_library(orvane_headers INTERFACE)
target_include_directories(orvane_headers INTERFACE
    "${CMAKE_CURRENT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}/include")
target_compile_features(orvane_headers INTERFACE cxx_std_20)
target_link_libraries(orvane_headers INTERFACE orvane_toolkit)

# What a host of a driver library compiles with; loading by name needs the dynamic loader.
add_library(orvane_host_headers INTERFACE)
set_target_properties(orvane_host_headers PROPERTIES EXPORT_NAME headers)
target_include_directories(orvane_host_headers INTERFACE
    "$<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>")
target_compile_features(orvane_host_headers INTERFACE cxx_std_20)
target_link_libraries(orvane_host_headers INTERFACE ${CMAKE_DL_LIBS} Threads::Threads
    $<BUILD_INTERFACE:orvane_toolkit> $<INSTALL_INTERFACE:TvlDriverOrvaneVirtuel::toolkit>)

add_library(orvane_flags INTERFACE)
target_compile_options(orvane_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    -fPIC -fvisibility=hidden -ffunction-sections -fdata-sections
    # Unique symbols would keep the library in the process after it is unloaded.
    $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>
    # A product and a sum are rounded separately, also where the processor could do both in one
    # step.
    -ffp-contract=off
    $<$<BOOL:${ORVANE_WERROR}>:-Werror>)
if(NOT ORVANE_SANITIZERS)
    target_compile_definitions(orvane_flags INTERFACE $<$<CONFIG:Release,RelWithDebInfo>:_FORTIFY_SOURCE=2>)
endif()
# The tables of the loader are read-only once the code is loaded.
target_link_options(orvane_flags INTERFACE LINKER:-z,relro LINKER:-z,now)

if(ORVANE_SANITIZERS)
    add_compile_options(-fsanitize=${ORVANE_SANITIZERS} -fno-omit-frame-pointer
                        -fno-sanitize-recover=undefined)
    add_link_options(-fsanitize=${ORVANE_SANITIZERS})
endif()
