# What the tests share. They are run as scripts with NAME and SETTINGS set.
cmake_policy(VERSION 3.18)
include("${SETTINGS}")
set(WORK "${WORK_DIR}/${NAME}")
set(INSTALLED "${WORK_DIR}/moved") # where install.cmake leaves its tree
set(STRANGER "${CMAKE_CURRENT_LIST_DIR}/stranger")
set(STRANGER_OUTPUT "255 206 0 58")
set(STRANGER_SOURCE_LXColor "${STRANGER}/main.cpp")
set(STRANGER_SOURCE_LXColorExtras "${STRANGER}/extras.cpp")
set(STRANGER_SOURCE_LXColorWidgets "${STRANGER}/widgets.cpp")

# skip_without(PROGRAM...): ends the test where a program is missing.
macro(skip_without)
    foreach(program ${ARGN})
        find_program(FOUND_${program} ${program})
        if(NOT FOUND_${program})
            message(STATUS "SKIPPED: ${program} is not installed")
            return()
        endif()
    endforeach()
endmacro()

# run(COMMAND...): fails with the output of a command that fails; its standard output is in RUN_OUTPUT.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${command}\n${output}${errors}\nexit status: ${result}")
    endif()
    set(RUN_OUTPUT "${output}" PARENT_SCOPE)
endfunction()

function(expect_equal what got expected)
    if(NOT "${got}" STREQUAL "${expected}")
        message(SEND_ERROR "${what}\ngot:      ${got}\nexpected: ${expected}")
    endif()
endfunction()

function(expect_exists)
    foreach(path IN LISTS ARGN)
        if(NOT EXISTS "${path}")
            message(SEND_ERROR "missing: ${path}")
        endif()
    endforeach()
endfunction()

function(expect_stranger_output program)
    run(${ARGN} "${program}")
    string(STRIP "${RUN_OUTPUT}" output)
    expect_equal("output of ${program}" "${output}" "${STRANGER_OUTPUT}")
endfunction()

# build_stranger(DIR OPTION...): configures, builds and runs the stranger's project, and looks at what it was compiled
# with: nothing of this project's own warnings and options may reach it.
function(build_stranger dir)
    run("${CMAKE_COMMAND}" -S "${STRANGER}" -B "${dir}" -G "${GENERATOR}"
        "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}" "-DCMAKE_CXX_COMPILER_LAUNCHER=${CXX_COMPILER_LAUNCHER}" ${ARGN})
    run("${CMAKE_COMMAND}" --build "${dir}")

    file(READ "${dir}/compile_commands.json" commands)
    string(REGEX MATCHALL "\"command\": [^\n]*stranger/[a-z]+.cpp" commands "${commands}")
    if(NOT commands)
        message(SEND_ERROR "no compile commands of the stranger in ${dir}")
    endif()
    if(commands MATCHES " (-W[^ ]+|-ffp-contract[^ ]*|-fmacro-prefix[^ ]*|-DQT_NO_KEYWORDS|-fvisibility[^ ]*)")
        message(SEND_ERROR "reaches users of the library: ${CMAKE_MATCH_1}")
    endif()

    expect_stranger_output("${dir}/stranger")
    if("LXColorExtras" IN_LIST LIBRARIES)
        expect_stranger_output("${dir}/stranger_extras")
    endif()
    if("LXColorWidgets" IN_LIST LIBRARIES)
        expect_stranger_output("${dir}/stranger_widgets")
    endif()
endfunction()

# build_stranger_with_pkg_config(DIR PREFIX): one command, as in a shell.
function(build_stranger_with_pkg_config dir prefix)
    set(ENV{PKG_CONFIG_PATH} "${prefix}/${LIBDIR}/pkgconfig:$ENV{PKG_CONFIG_PATH}")
    file(MAKE_DIRECTORY "${dir}")
    foreach(library IN LISTS LIBRARIES)
        run("${FOUND_pkg-config}" --cflags --libs ${library})
        separate_arguments(flags UNIX_COMMAND "${RUN_OUTPUT}")
        run("${CXX_COMPILER}" -std=c++17 -fPIC "${STRANGER_SOURCE_${library}}" ${flags} -o "${dir}/with-${library}")
        expect_stranger_output("${dir}/with-${library}"
            "${CMAKE_COMMAND}" -E env "LD_LIBRARY_PATH=${prefix}/${LIBDIR}")
    endforeach()
    run("${FOUND_pkg-config}" --variable=pkgdatadir LXColor)
    string(STRIP "${RUN_OUTPUT}" data_dir)
    expect_exists("${data_dir}")
endfunction()
