# SPDX-License-Identifier: GPL-3.0-or-later
# Cross-compiling for 64-bit Windows with MinGW-w64 (POSIX threads), against the Qt for Windows
# that tools/qt-windows.sh builds into KELVORA_QT_WINDOWS (default
# ~/.cache/kelvora/qt-6.4.2-mingw64). The host's Qt 6.4.2 lends its tools (moc, rcc, uic).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_STRIP x86_64-w64-mingw32-strip)
set(CMAKE_OBJDUMP x86_64-w64-mingw32-objdump)

if(DEFINED ENV{KELVORA_QT_WINDOWS})
    set(KELVORA_QT_WINDOWS "$ENV{KELVORA_QT_WINDOWS}")
else()
    set(KELVORA_QT_WINDOWS "$ENV{HOME}/.cache/kelvora/qt-6.4.2-mingw64")
endif()
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 "${KELVORA_QT_WINDOWS}")
list(APPEND CMAKE_PREFIX_PATH "${KELVORA_QT_WINDOWS}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)
