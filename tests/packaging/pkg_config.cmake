# A stranger's program is compiled with what pkg-config says of the installed library.
include("${CMAKE_CURRENT_LIST_DIR}/Common.cmake")
skip_without(pkg-config)

file(REMOVE_RECURSE "${WORK}")
build_stranger_with_pkg_config("${WORK}" "${INSTALLED}")
