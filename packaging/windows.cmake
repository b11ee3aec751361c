# SPDX-License-Identifier: GPL-3.0-or-later
# Kelvora for Windows, laid out as windeployqt lays out a Qt programme: kelvora.exe with the Qt
# libraries, the plugins in their folders, Qt's German texts and the compiler's runtime beside it.
#   package   Kelvora-<version>-win64.exe, an NSIS installer: bin\ and share\kelvora\ under the
#             programme folder, a Start-menu entry and an uninstaller. The share\kelvora folder
#             next to bin\ makes it an installed copy, which keeps the pupils' files in their
#             own %APPDATA%\Kelvora.
#   portable  Kelvora-<version>-win64\ and Kelvora-<version>-win64.zip: the same files with
#             kelvora.exe at the top and no share folder, a copy that keeps its files beside
#             itself (a USB stick, a network drive).
set(kelvora_windows_name Kelvora-${PROJECT_VERSION}-win64)

# The compiler's runtime: MinGW-w64's three libraries, or Microsoft's for MSVC.
set(KELVORA_MINGW_RUNTIME)
if(MINGW)
    foreach(dll IN ITEMS libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll}
            OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
        get_filename_component(path "${path}" ABSOLUTE)
        if(NOT EXISTS "${path}")
            message(FATAL_ERROR "${CMAKE_CXX_COMPILER} does not know where ${dll} is")
        endif()
        list(APPEND KELVORA_MINGW_RUNTIME "${path}")
    endforeach()
    install(FILES ${KELVORA_MINGW_RUNTIME} DESTINATION bin)
else()
    set(CMAKE_INSTALL_SYSTEM_RUNTIME_DESTINATION bin)
    include(InstallRequiredSystemLibraries)
endif()
set(KELVORA_MINGW_RUNTIME "${KELVORA_MINGW_RUNTIME}" CACHE INTERNAL
    "The MinGW-w64 runtime libraries shipped with the programme")

# Qt's German texts for its own dialogs: the same for every platform, so the host's copy serves.
find_file(KELVORA_QTBASE_DE qtbase_de.qm
    PATHS /usr/share/qt6/translations ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_TRANSLATIONS}
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
if(NOT KELVORA_QTBASE_DE)
    message(FATAL_ERROR "qtbase_de.qm not found (Debian package qt6-translations-l10n)")
endif()

# The programme's icon, rendered from its drawing, and its version, compiled into kelvora.exe
# (without rsvg-convert and Python the programme has neither).
find_program(KELVORA_RSVG_CONVERT rsvg-convert)
find_package(Python3 COMPONENTS Interpreter)
set(KELVORA_ICO)
if(KELVORA_RSVG_CONVERT AND Python3_Interpreter_FOUND)
    set(KELVORA_ICO ${CMAKE_CURRENT_BINARY_DIR}/kelvora.ico)
    set(icon_pngs)
    foreach(size IN ITEMS 16 24 32 48 64 256)
        set(icon_png ${CMAKE_CURRENT_BINARY_DIR}/icon-${size}.png)
        kelvora_render_icon(${icon_png} ${size})
        list(APPEND icon_pngs ${icon_png})
    endforeach()
    add_custom_command(OUTPUT ${KELVORA_ICO}
        COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/make-ico.py ${KELVORA_ICO}
            ${icon_pngs}
        DEPENDS ${icon_pngs} ${CMAKE_CURRENT_SOURCE_DIR}/make-ico.py
        COMMENT "Writing kelvora.ico"
        VERBATIM)
    add_custom_target(kelvora_icon DEPENDS ${KELVORA_ICO})
    configure_file(kelvora.rc.in kelvora.rc @ONLY)
    target_sources(kelvora PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/kelvora.rc)
    set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/kelvora.rc
        TARGET_DIRECTORY kelvora PROPERTIES OBJECT_DEPENDS ${KELVORA_ICO})
    add_dependencies(kelvora kelvora_icon)
else()
    message(STATUS "rsvg-convert or Python 3 not found: kelvora.exe gets no icon")
endif()

foreach(module IN ITEMS Core Gui Widgets Svg PrintSupport)
    install(FILES $<TARGET_FILE:Qt6::${module}> DESTINATION bin)
endforeach()
foreach(plugin IN ITEMS platforms/QWindowsIntegrationPlugin styles/QWindowsVistaStylePlugin
        imageformats/QSvgPlugin imageformats/QICOPlugin imageformats/QJpegPlugin
        imageformats/QGifPlugin iconengines/QSvgIconPlugin)
    get_filename_component(folder ${plugin} DIRECTORY)
    get_filename_component(target ${plugin} NAME)
    if(NOT TARGET Qt6::${target})
        message(FATAL_ERROR "The Qt for Windows in ${QT6_INSTALL_PREFIX} has no ${target}")
    endif()
    install(FILES $<TARGET_FILE:Qt6::${target}> DESTINATION bin/${folder})
endforeach()
install(FILES ${KELVORA_QTBASE_DE} DESTINATION bin/translations)
# A stripped install (the installer, the portable copy) strips the libraries too: the MinGW-w64
# runtime and Qt come with their symbols.
if(MINGW AND CMAKE_STRIP)
    install(CODE "
        if(CMAKE_INSTALL_DO_STRIP)
            file(GLOB_RECURSE dlls \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin/*.dll\")
            foreach(dll IN LISTS dlls)
                execute_process(COMMAND \"${CMAKE_STRIP}\" --strip-unneeded \"\${dll}\"
                    COMMAND_ERROR_IS_FATAL ANY)
            endforeach()
        endif()")
endif()

# The installer and the portable copy carry the licence; without its text neither is made.
set(KELVORA_LICENSE_TEXT /usr/share/common-licenses/GPL-3 CACHE FILEPATH
    "Text of the GNU General Public License version 3, installed as share/kelvora/COPYING.txt")
if(NOT EXISTS ${KELVORA_LICENSE_TEXT})
    message(WARNING "No licence text at ${KELVORA_LICENSE_TEXT}: set KELVORA_LICENSE_TEXT to a "
        "copy of the GNU GPL version 3 for the targets \"package\" and \"portable\"")
    return()
endif()
install(FILES ${KELVORA_LICENSE_TEXT} DESTINATION share/kelvora RENAME COPYING.txt)

# The portable folder and its zip, from an install into a scratch folder.
add_custom_target(portable
    COMMAND ${CMAKE_COMMAND} -DBUILD_DIR=${CMAKE_BINARY_DIR} -DNAME=${kelvora_windows_name}
        -DLICENSE=${KELVORA_LICENSE_TEXT} -P ${CMAKE_CURRENT_SOURCE_DIR}/portable.cmake
    DEPENDS kelvora
    WORKING_DIRECTORY ${CMAKE_BINARY_DIR}
    COMMENT "Writing ${kelvora_windows_name}.zip"
    VERBATIM)

# The installer.
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_GENERATOR NSIS)
set(CPACK_PACKAGE_NAME Kelvora)
set(CPACK_PACKAGE_VENDOR "Kelvora-Team")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_HOMEPAGE_URL ${KELVORA_HOMEPAGE})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Lernprogramm zur elektrischen Leitung in Metallen, Gasen und Halbleitern")
set(CPACK_PACKAGE_FILE_NAME ${kelvora_windows_name})
set(CPACK_PACKAGE_INSTALL_DIRECTORY Kelvora)
set(CPACK_PACKAGE_INSTALL_REGISTRY_KEY Kelvora)
set(CPACK_PACKAGE_EXECUTABLES kelvora Kelvora)
set(CPACK_RESOURCE_FILE_LICENSE ${KELVORA_LICENSE_TEXT})
set(CPACK_STRIP_FILES ON)
set(CPACK_NSIS_INSTALL_ROOT "$PROGRAMFILES64")
set(CPACK_NSIS_PACKAGE_NAME Kelvora)
set(CPACK_NSIS_DISPLAY_NAME Kelvora)
set(CPACK_NSIS_INSTALLED_ICON_NAME bin\\kelvora.exe)
set(CPACK_NSIS_URL_INFO_ABOUT ${KELVORA_HOMEPAGE})
set(CPACK_NSIS_ENABLE_UNINSTALL_BEFORE_INSTALL ON)
set(CPACK_NSIS_EXECUTABLES_DIRECTORY bin)
set(CPACK_NSIS_MUI_FINISHPAGE_RUN kelvora.exe)
set(CPACK_NSIS_COMPRESSOR "/SOLID lzma")
# A 64-bit installer for the 64-bit programme: it writes into the 64-bit Program Files and
# registry, and runs where only 64-bit Windows programmes run (Wine without its 32-bit half).
set(CPACK_NSIS_DEFINES "  Target amd64-unicode")
if(KELVORA_ICO)
    set(CPACK_NSIS_MUI_ICON ${KELVORA_ICO})
    set(CPACK_NSIS_MUI_UNIICON ${KELVORA_ICO})
endif()
include(CPack)

set(KELVORA_WINDOWS_INSTALLER ${CMAKE_BINARY_DIR}/${kelvora_windows_name}.exe
    CACHE INTERNAL "The installer that the target package writes")
set(KELVORA_WINDOWS_ZIP ${CMAKE_BINARY_DIR}/${kelvora_windows_name}.zip
    CACHE INTERNAL "The zip of the portable copy that the target portable writes")
