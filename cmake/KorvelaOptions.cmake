# SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
# SPDX-License-Identifier: GPL-3.0-or-later

# One target carries the language level, the warnings and Qt's strictness macros, so that the library,
# the executable, the tools and the tests are all held to the same rules.
add_library(korvela_options INTERFACE)
target_compile_features(korvela_options INTERFACE cxx_std_20)
target_include_directories(korvela_options INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_definitions(
    korvela_options
    INTERFACE QT_DISABLE_DEPRECATED_BEFORE=0x060800
              QT_NO_CAST_FROM_ASCII
              QT_NO_CAST_TO_ASCII
              QT_NO_CAST_FROM_BYTEARRAY
              QT_NO_URL_CAST_FROM_STRING
              QT_NO_FOREACH
              QT_NO_JAVA_STYLE_ITERATORS
              QT_NO_KEYWORDS
              QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
              QT_USE_QSTRINGBUILDER
)

if(MSVC)
    target_compile_options(korvela_options INTERFACE /W4 /utf-8 /permissive- /Zc:__cplusplus)
else()
    # No fused multiply-add: resampled points must be the same on every processor.
    target_compile_options(
        korvela_options
        INTERFACE -ffp-contract=off
                  -Wall
                  -Wextra
                  -Wpedantic
                  -Wcast-align
                  -Wconversion
                  -Wdouble-promotion
                  -Wextra-semi
                  -Wformat=2
                  -Wnon-virtual-dtor
                  -Wnull-dereference
                  -Wold-style-cast
                  -Woverloaded-virtual
                  -Wshadow
                  -Wundef
                  -Wunused
                  -Wzero-as-null-pointer-constant
    )
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(
            korvela_options INTERFACE -Wduplicated-branches -Wduplicated-cond -Wlogical-op
                                      -Wsuggest-override
        )
    endif()
endif()

if(KORVELA_WARNINGS_AS_ERRORS)
    if(MSVC)
        target_compile_options(korvela_options INTERFACE /WX)
    else()
        target_compile_options(korvela_options INTERFACE -Werror)
    endif()
endif()

if(KORVELA_SANITIZE)
    target_compile_options(
        korvela_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                  -fno-omit-frame-pointer
    )
    target_link_options(korvela_options INTERFACE -fsanitize=address,undefined)
endif()

if(KORVELA_FUZZ)
    target_compile_options(korvela_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
