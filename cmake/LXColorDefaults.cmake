# Defaults for a build of this project on its own: an optimised build, ccache where it is there, one place for binaries.
if(NOT LXCOLOR_IS_TOP_LEVEL)
    return()
endif()

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Kind of build" FORCE)
endif()

find_program(LXCOLOR_CCACHE ccache)
if(LXCOLOR_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${LXCOLOR_CCACHE}")
endif()

set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
