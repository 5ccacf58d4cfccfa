# The symbols that the shared libraries export are those of the lists in git.
include("${CMAKE_CURRENT_LIST_DIR}/Common.cmake")
skip_without(bash nm diff)

run("${FOUND_bash}" "${SOURCE_DIR}/scripts/update-exports" --check "${BUILD_DIR}")
