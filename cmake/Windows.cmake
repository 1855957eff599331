# What a program for Windows carries: version, icon, and the manifest (scaling by the screen, long paths, UTF-8).
# On other systems nothing is done.

# vasclip_program_head(target "What the program is")
function(vasclip_program_head target description)
    if(NOT WIN32)
        return()
    endif()
    set(PROGRAM ${target})
    set(DESCRIPTION ${description})
    set(MANIFEST ${CMAKE_SOURCE_DIR}/resources/windows/program.manifest)
    set(ICON ${CMAKE_BINARY_DIR}/vasclip.ico)
    set(head ${CMAKE_CURRENT_BINARY_DIR}/${target}_head.rc)
    configure_file(${CMAKE_SOURCE_DIR}/resources/windows/program.rc.in ${head} @ONLY)
    set_source_files_properties(${head} PROPERTIES OBJECT_DEPENDS "${MANIFEST};${ICON}")
    target_sources(${target} PRIVATE ${head})
    add_dependencies(${target} icon)
endfunction()
