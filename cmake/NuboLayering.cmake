# SPDX-License-Identifier: GPL-3.0-or-later
# The layering check: every target may include only its own headers and those of the libraries
# it links (directly or through their public links). CMake knows the links; this writes them
# with each target's sources into the build folder, and the test "include_layering" compares
# them with the #include lines (cmake/check_includes.py). The test "link_layering"
# (cmake/check_links.py) keeps core libraries off Qt Gui and Widgets and compares the links
# with the table and graph in docs/architecture.md.

function(nubo_collect_targets directory out)
    get_property(targets DIRECTORY ${directory} PROPERTY BUILDSYSTEM_TARGETS)
    get_property(children DIRECTORY ${directory} PROPERTY SUBDIRECTORIES)
    foreach(child IN LISTS children)
        nubo_collect_targets(${child} more)
        list(APPEND targets ${more})
    endforeach()
    set(${out} ${targets} PARENT_SCOPE)
endfunction()

# One line per target: name, type, source folder, sources, links, public links (tab-separated;
# lists keep CMake's semicolons).
function(nubo_write_layering_manifest file)
    nubo_collect_targets(${PROJECT_SOURCE_DIR} targets)
    set(lines "")
    foreach(target IN LISTS targets)
        get_target_property(type ${target} TYPE)
        if(type STREQUAL "UTILITY")
            continue()
        endif()
        get_target_property(dir ${target} SOURCE_DIR)
        get_target_property(sources ${target} SOURCES)
        get_target_property(interface ${target} INTERFACE_LINK_LIBRARIES)
        set(links "")
        if(NOT type STREQUAL "INTERFACE_LIBRARY")
            get_target_property(links ${target} LINK_LIBRARIES)
        endif()
        foreach(var sources links interface)
            if(NOT ${var})
                set(${var} "")
            endif()
        endforeach()
        string(APPEND lines "${target}\t${type}\t${dir}\t${sources}\t${links}\t${interface}\n")
    endforeach()
    file(WRITE ${file} "${lines}")
endfunction()
