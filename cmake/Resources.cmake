# SPDX-License-Identifier: GPL-3.0-or-later

# Gives a program its icon, manifest and version information on Windows; nothing elsewhere.
function(tavrel_add_resources target description)
    if(NOT WIN32)
        return()
    endif()
    set(packaging ${PROJECT_SOURCE_DIR}/packaging/windows)
    configure_file(${packaging}/program.manifest.in ${PROJECT_BINARY_DIR}/program.manifest @ONLY)
    set(script ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
    configure_file(${packaging}/program.rc.in ${script} @ONLY)
    set_source_files_properties(${script} PROPERTIES
        OBJECT_DEPENDS "${packaging}/Tavrel.ico;${PROJECT_BINARY_DIR}/program.manifest")
    target_sources(${target} PRIVATE ${script})
endfunction()
