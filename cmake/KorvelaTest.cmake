# SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# korvela_add_test(<name> [<further source>...])
#
# Makes the test program <name> from <name>.cpp and registers it with CTest. Tests run without a
# display, in the C locale and with a time limit, so that their outcome depends on nothing around them.
function(korvela_add_test name)
    add_executable(${name} ${name}.cpp ${ARGN})
    target_link_libraries(${name} PRIVATE korvela_options korvela_testsupport)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(
        ${name} PROPERTIES TIMEOUT 300
                           ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C;TZ=UTC;QT_LOGGING_RULES=qt.qpa.*=false"
    )
endfunction()
