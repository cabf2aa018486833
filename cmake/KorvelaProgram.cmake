# SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# korvela_add_program(<name> <title> <source>)
#
# Makes a program that is installed: the executable <name>, which Windows and macOS show to people as
# <title>, with the icon and the version of the editor.
function(korvela_add_program name title source)
    add_executable(${name} WIN32 MACOSX_BUNDLE ${source})
    target_link_libraries(${name} PRIVATE korvela_options korvela)
    set(packaging "${PROJECT_SOURCE_DIR}/packaging")

    if(WIN32)
        configure_file("${packaging}/windows/program.rc.in" ${name}.rc @ONLY)
        target_sources(${name} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/${name}.rc")
    elseif(APPLE)
        set(icon "${packaging}/macos/korvela_entry.icns")
        target_sources(${name} PRIVATE "${icon}")
        set_source_files_properties("${icon}" PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
        set_target_properties(
            ${name}
            PROPERTIES MACOSX_BUNDLE_INFO_PLIST "${packaging}/macos/Info.plist.in"
                       MACOSX_BUNDLE_BUNDLE_NAME "${title}"
                       MACOSX_BUNDLE_GUI_IDENTIFIER "invalid.korvela.${name}"
                       MACOSX_BUNDLE_ICON_FILE korvela_entry.icns
        )
        # The deployment tool copies the SVG plugin only into bundles that link the module.
        target_link_libraries(${name} PRIVATE Qt6::Svg)
    else()
        target_link_options(${name} PRIVATE LINKER:-z,relro,-z,now)
    endif()
endfunction()

# korvela_add_console_program(<name> <source>)
#
# Makes a program that is installed and needs no window: no icon, no bundle, and of Qt only the libraries
# that it uses.
function(korvela_add_console_program name source)
    add_executable(${name} ${source})
    target_link_libraries(${name} PRIVATE korvela_options korvela)
    target_compile_definitions(${name} PRIVATE KORVELA_VERSION="${PROJECT_VERSION}")
    if(UNIX AND NOT APPLE)
        target_link_options(${name} PRIVATE LINKER:-z,relro,-z,now LINKER:--as-needed)
    endif()
endfunction()

# korvela_add_helper(<name> <source>)
#
# Makes a program that people never start: the other programs find it in KORVELA_LIBEXEC_FOLDER of the
# installation, or of the build.
include(GNUInstallDirs)
set(KORVELA_LIBEXEC_FOLDER "${CMAKE_INSTALL_LIBEXECDIR}/korvela-entry-edit")
function(korvela_add_helper name source)
    add_executable(${name} ${source})
    target_link_libraries(${name} PRIVATE korvela_options)
    set_target_properties(
        ${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/${KORVELA_LIBEXEC_FOLDER}"
    )
    if(UNIX AND NOT APPLE)
        target_link_options(${name} PRIVATE LINKER:-z,relro,-z,now LINKER:--as-needed)
    endif()
endfunction()
