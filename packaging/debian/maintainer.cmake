# SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# Read by cpack before it packs: whoever makes a package says who answers for it.

if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()
if(NOT KORVELA_MAINTAINER)
    set(KORVELA_MAINTAINER "$ENV{KORVELA_MAINTAINER}")
endif()
if(NOT KORVELA_MAINTAINER MATCHES "^[^<>]+ <[^<>@ ]+@[^<>@ ]+>$")
    message(
        FATAL_ERROR
            "A package needs somebody who answers for it. Give the name and an address that is read: "
            "cpack -D KORVELA_MAINTAINER='Name <address>', or the environment variable "
            "KORVELA_MAINTAINER. It is now '${KORVELA_MAINTAINER}'."
    )
endif()
set(CPACK_PACKAGE_CONTACT "${KORVELA_MAINTAINER}")
