# SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Run by cpack on the installed files before it packs them: makes them what Debian expects.

if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()

set(share "${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}/share")
set(doc "${share}/doc/${CPACK_PACKAGE_NAME}")

# Debian has the text of the licence; "copyright" says where.
file(REMOVE "${doc}/LICENSE")
file(COPY_FILE "${CPACK_KORVELA_COPYRIGHT}" "${doc}/copyright")
configure_file("${CPACK_KORVELA_CHANGELOG}" "${doc}/changelog" @ONLY)
file(CHMOD "${doc}/copyright" "${doc}/changelog" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ
                                                              WORLD_READ
)

file(GLOB manualPages "${share}/man/man1/*.1")
execute_process(
    COMMAND gzip --best --no-name ${manualPages} "${doc}/changelog" COMMAND_ERROR_IS_FATAL ANY
)
