# SPDX-License-Identifier: GPL-3.0-or-later
# How the Qt of the Windows release is configured: widgets and the Windows platform, built into the program.
set(BUILD_SHARED_LIBS OFF CACHE BOOL "")
set(CMAKE_BUILD_TYPE MinSizeRel CACHE STRING "")
set(QT_BUILD_EXAMPLES OFF CACHE BOOL "")
set(QT_BUILD_TESTS OFF CACHE BOOL "")

# Qt's tools (moc, rcc, uic) are the ones of the machine that builds.
set(QT_HOST_PATH /usr CACHE PATH "")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH "")

# It gets into the libraries. The cache may lie anywhere and must not change them.
set(CMAKE_INSTALL_PREFIX /opt/tavrel-qt CACHE PATH "")

set(FEATURE_testlib ON CACHE BOOL "")
set(INPUT_opengl no CACHE STRING "")
foreach(feature IN ITEMS
    concurrent dbus direct2d1_1 gif glib icu jpeg network opengl pkg_config printsupport sql style_windowsvista tabletevent
    vulkan xml
    system_doubleconversion system_freetype system_harfbuzz system_jpeg system_libb2 system_pcre2 system_png
    system_zlib
)
    set(FEATURE_${feature} OFF CACHE BOOL "")
endforeach()
