# A stranger's project has the library as a part of it, static; what it installs of it serves others.
include("${CMAKE_CURRENT_LIST_DIR}/Common.cmake")
skip_without(pkg-config)

# The speed of the code does not matter here, that of the compiler does.
file(REMOVE_RECURSE "${WORK}/installed" "${WORK}/user" "${WORK}/pkg-config")
build_stranger("${WORK}/stranger" "-DLXCOLOR_SOURCE_DIR=${SOURCE_DIR}" "-DCMAKE_PREFIX_PATH=${PREFIX_PATH}"
    -DBUILD_SHARED_LIBS=OFF -DLXCOLOR_INSTALL=ON -DCMAKE_CXX_FLAGS=-O0 "-DCMAKE_INSTALL_LIBDIR=${LIBDIR}")

run("${CMAKE_COMMAND}" --install "${WORK}/stranger" --prefix "${WORK}/installed")
foreach(library IN LISTS LIBRARIES)
    expect_exists("${WORK}/installed/${LIBDIR}/lib${library}.a")
endforeach()
build_stranger("${WORK}/user" "-DCMAKE_PREFIX_PATH=${WORK}/installed;${PREFIX_PATH}")
build_stranger_with_pkg_config("${WORK}/pkg-config" "${WORK}/installed")
