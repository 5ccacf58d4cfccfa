# Every public declaration is documented, and the reference is built without a warning.
include("${CMAKE_CURRENT_LIST_DIR}/Common.cmake")
skip_without(doxygen)
if(NOT EXISTS "${BUILD_DIR}/docs/Doxyfile")
    message(STATUS "SKIPPED: Doxygen was not installed when the build was configured")
    return()
endif()

file(READ "${BUILD_DIR}/docs/Doxyfile" doxyfile)
file(MAKE_DIRECTORY "${WORK}")
file(WRITE "${WORK}/Doxyfile" "${doxyfile}\nOUTPUT_DIRECTORY = \"${WORK}\"\n")
run("${FOUND_doxygen}" "${WORK}/Doxyfile")
expect_exists("${WORK}/html/index.html" "${WORK}/html/classLXColor.html")
