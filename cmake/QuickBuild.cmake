# SPDX-License-Identifier: GPL-3.0-or-later

# A build from nothing in half the time, for programs that are started or tested at once. Builds without it find
# includes that are missing, and compile less after a change.
option(TAVREL_QUICK_BUILD "Compile the files of a folder together, and the tests with precompiled headers" OFF)

# Compiles up to ten files of a folder at a time, so names without linkage are unique in their folder.
function(tavrel_compile_together target)
    if(NOT TAVREL_QUICK_BUILD)
        return()
    endif()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    get_target_property(sources ${target} SOURCES)
    foreach(source IN LISTS sources)
        get_filename_component(folder ${source} DIRECTORY)
        string(MAKE_C_IDENTIFIER "${folder}" folder)
        math(EXPR count_${folder} "${count_${folder}} + 1")
        math(EXPR part "(${count_${folder}} - 1) / 10")
        set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${target}_${folder}_${part})
    endforeach()
endfunction()

# For tests: compiling them takes longer than running them. ccache needs -fpch-preprocess.
function(tavrel_compile_quickly target)
    if(TAVREL_QUICK_BUILD)
        target_compile_options(${target} PRIVATE -O0 $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
        target_precompile_headers(${target} ${ARGN})
    endif()
endfunction()
