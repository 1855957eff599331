# One static library a room, one executable a test folder. Sources are listed by name.

add_library(vasclip_flags INTERFACE)
# Of the language, since a program for Windows has a source in another one.
target_compile_options(vasclip_flags INTERFACE
    "$<$<COMPILE_LANGUAGE:CXX>:-Wall;-Wextra;-Wpedantic;$<$<BOOL:${VASCLIP_WERROR}>:-Werror>>")
target_compile_definitions(vasclip_flags INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS
    QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING)
if(VASCLIP_SANITIZE)
    target_compile_options(vasclip_flags INTERFACE -fsanitize=${VASCLIP_SANITIZE} -fno-omit-frame-pointer
        -fno-sanitize-recover=all)
    target_link_options(vasclip_flags INTERFACE -fsanitize=${VASCLIP_SANITIZE})
endif()

# What nearly every file reads is read once. The two carriers have no more definitions than each of their users, or the
# compiler would refuse what they hold; ccache needs -fpch-preprocess to look through.
option(VASCLIP_PCH "Precompile the headers that nearly every file reads" ON)
if(VASCLIP_PCH)
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        target_compile_options(vasclip_flags INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
    endif()
    foreach(carrier room test)
        file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/pch_${carrier}.cpp CONTENT "")
        add_library(vasclip_pch_${carrier} STATIC ${CMAKE_BINARY_DIR}/pch_${carrier}.cpp)
        target_link_libraries(vasclip_pch_${carrier} PRIVATE Qt6::Core vasclip_flags)
        set_target_properties(vasclip_pch_${carrier} PROPERTIES POSITION_INDEPENDENT_CODE ON)
        target_precompile_headers(vasclip_pch_${carrier} PRIVATE <QDateTime> <QHash> <QList> <QMap> <QObject> <QString>
            <QStringList> <algorithm> <array> <functional> <map> <memory> <optional> <string> <vector>)
    endforeach()
    if(VASCLIP_TESTS)
        find_package(GTest REQUIRED)
        target_link_libraries(vasclip_pch_test PRIVATE GTest::gtest)
        target_precompile_headers(vasclip_pch_test PRIVATE <gtest/gtest.h>)
    endif()
endif()

# vasclip_room(platform/text SOURCES a.cpp b.h LIBS Qt6::Core [MOC])
#   makes the target vasclip_text; headers are included from src/ ("platform/text/text.h").
function(vasclip_room room)
    cmake_parse_arguments(arg "MOC" "" "SOURCES;LIBS" ${ARGN})
    get_filename_component(name ${room} NAME)
    set(target vasclip_${name})
    add_library(${target} STATIC ${arg_SOURCES})
    target_include_directories(${target} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(${target} PUBLIC Qt6::Core ${arg_LIBS} PRIVATE vasclip_flags)
    if(VASCLIP_PCH)
        target_precompile_headers(${target} REUSE_FROM vasclip_pch_room)
    endif()
    if(arg_MOC)
        set_target_properties(${target} PROPERTIES AUTOMOC ON)
    endif()
endfunction()

# vasclip_test(text SOURCES trim_test.cpp LIBS vasclip_text [MAIN own_main.cpp | MAIN_IN_SOURCES]
#              [UNIX fork_test.cpp] [WINDOWS drive_test.cpp])
#   makes the target test_text and registers each of its tests; the runs use no display. Files of tests that stand on what one
#   system alone has are listed apart; which were left out is told in left_out.txt.
function(vasclip_test name)
    cmake_parse_arguments(arg "MOC;MAIN_IN_SOURCES" "MAIN" "SOURCES;LIBS;ENV;PROPERTIES;UNIX;WINDOWS" ${ARGN})
    set(target test_${name})
    if(WIN32)
        list(APPEND arg_SOURCES ${arg_WINDOWS})
        foreach(source IN LISTS arg_UNIX)
            set_property(GLOBAL APPEND PROPERTY VASCLIP_LEFT_OUT "${name}: ${source}")
        endforeach()
        if(NOT arg_SOURCES)
            return()
        endif()
    else()
        list(APPEND arg_SOURCES ${arg_UNIX})
    endif()
    add_executable(${target} ${arg_SOURCES} ${arg_MAIN})
    target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(${target} PRIVATE ${arg_LIBS} GTest::gtest vasclip_flags)
    if(VASCLIP_PCH)
        target_precompile_headers(${target} REUSE_FROM vasclip_pch_test)
    endif()
    if(NOT arg_MAIN AND NOT arg_MAIN_IN_SOURCES)
        target_link_libraries(${target} PRIVATE GTest::gtest_main)
    endif()
    if(arg_MOC)
        set_target_properties(${target} PROPERTIES AUTOMOC ON)
    endif()
    # What is built for another system is run by that system's own script.
    if(CMAKE_CROSSCOMPILING)
        return()
    endif()
    # Databases are flushed at each commit; in memory that costs nothing and the tests ask no more of a disk.
    if(IS_DIRECTORY /dev/shm)
        set(directory TMPDIR=/dev/shm)
    endif()
    # Not the property ENVIRONMENT: test discovery takes a list of several variables apart.
    set_target_properties(${target} PROPERTIES CROSSCOMPILING_EMULATOR
        "${CMAKE_COMMAND};-E;env;QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;${directory};${arg_ENV}")
    # The rows of a table are numbered: printed, most would be the bytes of a struct, other ones in each run.
    gtest_discover_tests(${target} TEST_PREFIX "${name}: " DISCOVERY_TIMEOUT 60 NO_PRETTY_VALUES
        PROPERTIES TIMEOUT 300 ${arg_PROPERTIES})
endfunction()
