# orvane_exports: what a driver library exports, from the list that driver_loader.h also uses.

set(export_list "${PROJECT_SOURCE_DIR}/include/driver_export_list.h")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${export_list}")
file(STRINGS "${export_list}" symbols REGEX "^ORVANE_(PLAIN|DECORATED)")
list(TRANSFORM symbols REPLACE "^.*[(\"]([A-Za-z0-9_]+)\"?\\)$" "\\1")
list(JOIN symbols ";\n    " ORVANE_EXPORTED_SYMBOLS)
configure_file(cmake/exports.map.in exports.map @ONLY)

add_library(orvane_exports INTERFACE)
target_link_options(orvane_exports INTERFACE
    "LINKER:--version-script=${PROJECT_BINARY_DIR}/exports.map")
set_target_properties(orvane_exports PROPERTIES
    INTERFACE_LINK_DEPENDS "${PROJECT_BINARY_DIR}/exports.map")
