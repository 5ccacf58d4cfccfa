# A stranger's project finds the installed library with CMake.
include("${CMAKE_CURRENT_LIST_DIR}/Common.cmake")

file(REMOVE_RECURSE "${WORK}")
build_stranger("${WORK}/stranger" "-DCMAKE_PREFIX_PATH=${INSTALLED};${PREFIX_PATH}")

# compatible(MAJOR VERSION RESULT): what the package says to a request for a version.
function(compatible PACKAGE_FIND_VERSION_MAJOR PACKAGE_FIND_VERSION expected)
    include("${INSTALLED}/${LIBDIR}/cmake/LXColor/LXColorConfigVersion.cmake")
    expect_equal("version ${PACKAGE_FIND_VERSION} is compatible" "${PACKAGE_VERSION_COMPATIBLE}" "${expected}")
endfunction()
string(REGEX MATCH "^[0-9]+" major "${VERSION}")
math(EXPR next "${major} + 1")
compatible(${major} ${major}.0 TRUE)
compatible(${major} ${major}.999 FALSE)
compatible(${next} ${next}.0 FALSE)
