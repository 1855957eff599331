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
    # In the file as in memory, so that what is not run need not be read.
    target_link_options(${target} PRIVATE -Wl,--file-alignment=4096)
endfunction()

# vasclip_late(name library): a library to link with in place of a DLL of many others, which is loaded when it is first called
# and not with each start. On other systems it is the library itself.
function(vasclip_late name library)
    add_library(${name} INTERFACE)
    if(NOT WIN32)
        target_link_libraries(${name} INTERFACE ${library})
        return()
    endif()
    set(script ${CMAKE_SOURCE_DIR}/tools/windows/late-library)
    set(result ${CMAKE_BINARY_DIR}/lib${name}.a)
    add_custom_command(OUTPUT ${result}
        COMMAND ${script} ${CMAKE_OBJDUMP} ${CMAKE_DLLTOOL} $<TARGET_FILE:${library}> ${result}
        DEPENDS ${script} WORKING_DIRECTORY ${CMAKE_BINARY_DIR} VERBATIM)
    add_custom_target(${name}_made DEPENDS ${result})
    add_dependencies(${name} ${name}_made)
    target_include_directories(${name} SYSTEM INTERFACE $<TARGET_PROPERTY:${library},INTERFACE_INCLUDE_DIRECTORIES>)
    target_compile_definitions(${name} INTERFACE $<TARGET_PROPERTY:${library},INTERFACE_COMPILE_DEFINITIONS>)
    target_link_libraries(${name} INTERFACE ${result} delayimp)
endfunction()
