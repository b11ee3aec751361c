# SPDX-License-Identifier: GPL-3.0-or-later
# The Windows build's own tests, included by tests/CMakeLists.txt: the installer and the portable
# zip as "make windows" makes them, then each used under Wine on the dummy X server as a pupil
# uses it (tests/windows/smoke.py): a fresh Wine prefix, the programme resumed on page 3, five
# answers, a display-mode change, the exit frame, the files byte for byte.
if(NOT TARGET portable)
    return() # no licence text, so no packages (packaging/windows.cmake)
endif()
add_test(NAME windows_packages
    COMMAND ${CMAKE_COMMAND} --build ${CMAKE_BINARY_DIR} --target package portable)
set_tests_properties(windows_packages PROPERTIES FIXTURES_SETUP windows_packages LABELS system)

set(kelvora_smoke ${CMAKE_CURRENT_SOURCE_DIR}/windows/smoke.py)
add_test(NAME windows_smoke_portable
    COMMAND ${xorg_script} run ${xorg_state} /usr/bin/python3 ${kelvora_smoke}
        portable ${KELVORA_WINDOWS_ZIP})
add_test(NAME windows_smoke_installer
    COMMAND ${xorg_script} run ${xorg_state} /usr/bin/python3 ${kelvora_smoke}
        installer ${KELVORA_WINDOWS_INSTALLER})
set_tests_properties(windows_smoke_portable windows_smoke_installer PROPERTIES
    FIXTURES_REQUIRED "xorg_dummy;windows_packages" LABELS system SKIP_RETURN_CODE 77
    TIMEOUT 600 RESOURCE_LOCK x_display)
