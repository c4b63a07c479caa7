# What is installed, in three components: runtime (the library), development (all that a host is
# built with), hosts (the programs).

include(CMakePackageConfigHelpers)

set(ORVANE_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}/orvane")
set(ORVANE_PACKAGEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/TvlDriverOrvaneVirtuel")
set(packaging "${PROJECT_SOURCE_DIR}/packaging")

# A release build has debug information for the ABI check only: it is installed as with --strip.
install(CODE "if(CMAKE_INSTALL_CONFIG_NAME STREQUAL \"Release\")
    set(CMAKE_INSTALL_DO_STRIP TRUE)
endif()" ALL_COMPONENTS)

# The library, its headers, and the files by which a build finds them.
install(TARGETS TvlDriverOrvaneVirtuel orvane_host_headers EXPORT TvlDriverOrvaneVirtuel
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
    INCLUDES DESTINATION "${ORVANE_INCLUDEDIR}")
# The driver over the laboratory: hosts load it by its name with the number.
install(TARGETS TvlDriverOrvaneLaboratoire
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_SKIP)
install(DIRECTORY include/ DESTINATION "${ORVANE_INCLUDEDIR}" COMPONENT development)
install(EXPORT TvlDriverOrvaneVirtuel NAMESPACE TvlDriverOrvaneVirtuel::
    FILE TvlDriverOrvaneVirtuelTargets.cmake
    DESTINATION "${ORVANE_PACKAGEDIR}" COMPONENT development)
configure_package_config_file("${packaging}/TvlDriverOrvaneVirtuelConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/TvlDriverOrvaneVirtuelConfig.cmake" INSTALL_DESTINATION "${ORVANE_PACKAGEDIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/TvlDriverOrvaneVirtuelConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/TvlDriverOrvaneVirtuelConfig.cmake"
    "${PROJECT_BINARY_DIR}/TvlDriverOrvaneVirtuelConfigVersion.cmake"
    DESTINATION "${ORVANE_PACKAGEDIR}" COMPONENT development)
file(RELATIVE_PATH ORVANE_PREFIX_FROM_PC "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" /)
configure_file("${packaging}/tvldriverorvanevirtuel.pc.in"
    "${PROJECT_BINARY_DIR}/tvldriverorvanevirtuel.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/tvldriverorvanevirtuel.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)

# orvane_install_gzipped(<file> <destination> <component> [<name>])
function(orvane_install_gzipped file destination component)
    cmake_path(GET file FILENAME name)
    if(ARGC GREATER 3)
        set(name "${ARGV3}")
    endif()
    set(gzipped "${PROJECT_BINARY_DIR}/packaging/${component}/${name}.gz")
    cmake_path(GET gzipped PARENT_PATH folder)
    add_custom_command(OUTPUT "${gzipped}"
        COMMAND ${CMAKE_COMMAND} -E make_directory "${folder}"
        COMMAND gzip -9nc "${file}" > "${gzipped}"
        DEPENDS "${file}" VERBATIM)
    add_custom_target(orvane_gzipped_${component}_${name} ALL DEPENDS "${gzipped}")
    install(FILES "${gzipped}" DESTINATION "${destination}" COMPONENT ${component})
endfunction()

# The command line, its manual page, for which it prints its commands and options itself, and its
# completions for the shells.
if(TARGET orvane)
    install(TARGETS orvane RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT hosts)
    set(manual "${PROJECT_BINARY_DIR}/orvane.1")
    set(page "${PROJECT_SOURCE_DIR}/docs/man/orvane.1.in")
    add_custom_command(OUTPUT "${manual}"
        COMMAND ${CMAKE_COMMAND} -E env ASAN_OPTIONS=detect_leaks=0
            $<TARGET_FILE:orvane> manual > "${manual}.commands"
        COMMAND sed -e "/^@COMMANDS@$/r ${manual}.commands" -e "/^@COMMANDS@$/d" "${page}" > "${manual}"
        DEPENDS orvane "${page}" VERBATIM)
    orvane_install_gzipped("${manual}" "${CMAKE_INSTALL_MANDIR}/man1" hosts)
    set(completion "${PROJECT_SOURCE_DIR}/hosts/orvane/completion")
    install(FILES "${completion}/orvane.bash" RENAME orvane COMPONENT hosts
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")
    install(FILES "${completion}/orvane.fish" COMPONENT hosts
        DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d")
    # zsh has one folder for the completions of packages and one for those that an administrator
    # installs.
    install(CODE "
        set(folder site-functions)
        if(CMAKE_INSTALL_PREFIX MATCHES \"/usr$\")
            set(folder vendor-completions)
        endif()
        file(INSTALL \"${completion}/_orvane\"
            DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/zsh/\${folder}\")"
        COMPONENT hosts)
endif()

# The window, its manual page, its catalogues, its entry in the menu.
if(TARGET orvane-panel)
    install(TARGETS orvane-panel RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT hosts)
    orvane_install_gzipped("${PROJECT_SOURCE_DIR}/docs/man/orvane-panel.1"
        "${CMAKE_INSTALL_MANDIR}/man1" hosts)
    install(DIRECTORY "${PROJECT_BINARY_DIR}/locale/" DESTINATION "${CMAKE_INSTALL_LOCALEDIR}"
        COMPONENT hosts FILES_MATCHING PATTERN "*.mo")
    install(FILES "${packaging}/orvane-panel.desktop"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT hosts)
endif()

# Copyright and changelog of each Debian package, in a folder of its name.
foreach(component IN ITEMS runtime development hosts)
    set(folder "${CMAKE_INSTALL_DATADIR}/doc/${ORVANE_PACKAGE_${component}}")
    install(FILES "${packaging}/copyright" DESTINATION "${folder}" COMPONENT ${component})
    orvane_install_gzipped("${packaging}/changelog" "${folder}" ${component})
endforeach()

# The guides, each in the package that it describes. The port guide refers to the source tree.
set(docs "${PROJECT_SOURCE_DIR}/docs")
install(FILES "${docs}/host-guide.md" "${docs}/port-guide.md" "${docs}/threads.md" "${docs}/costs.md"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${ORVANE_PACKAGE_development}" COMPONENT development)
set(folder "${CMAKE_INSTALL_DATADIR}/doc/${ORVANE_PACKAGE_hosts}")
install(FILES "${docs}/panel.md" "${docs}/json.md" "${docs}/scenarios.md" DESTINATION "${folder}" COMPONENT hosts)
install(DIRECTORY "${docs}/pictures" DESTINATION "${folder}" COMPONENT hosts
    FILES_MATCHING PATTERN "panel-*.png")
