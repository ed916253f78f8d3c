# SPDX-License-Identifier: GPL-3.0-or-later
# Builds for 64-bit Windows with Debian's mingw-w64. The POSIX thread model has the threads of the standard library.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# The same sources give the same bytes: no time of the link in a program.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")

# TAVREL_QT is where qt.sh has put Qt, TAVREL_SOUND where sound.sh has put the sound libraries.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 $ENV{TAVREL_QT} $ENV{TAVREL_SOUND})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
