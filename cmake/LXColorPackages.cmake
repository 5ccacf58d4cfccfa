# Packages, made with cpack from the build tree: a Debian package for each component (`cpack -G DEB`), or one archive
# of everything (`cpack -G TGZ`).

set(CPACK_PACKAGE_NAME lxcolor)
set(CPACK_PACKAGE_VENDOR "LXColor developers")
set(CPACK_PACKAGE_CONTACT "LXColor developers <maintainers@lxcolor.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_GENERATOR TGZ)
set(CPACK_STRIP_FILES ON)
set(CPACK_LXCOLOR_SOURCE_DIR "${PROJECT_SOURCE_DIR}")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_SOURCE_IGNORE_FILES "/[.]git/" "/build" "/[.]cache/")

set(CPACK_COMPONENTS_ALL lxcolor_data lxcolor_development lxcolor_documentation)
if(BUILD_SHARED_LIBS)
    list(APPEND CPACK_COMPONENTS_ALL lxcolor_runtime)
    if(TARGET LXColorExtras)
        list(APPEND CPACK_COMPONENTS_ALL lxcolor_extras)
    endif()
    if(TARGET LXColorWidgets)
        list(APPEND CPACK_COMPONENTS_ALL lxcolor_widgets)
    endif()
endif()
if(TARGET lxcolor OR TARGET lxswatches)
    list(APPEND CPACK_COMPONENTS_ALL lxcolor_tools)
endif()
set(CPACK_COMPONENTS_GROUPING IGNORE)

# Debian
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/LXColor" "${PROJECT_BINARY_DIR}/extras"
    "${PROJECT_BINARY_DIR}/widgets")
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/LXColorDebianFiles.cmake")

# lxcolor_debian_package(COMPONENT PACKAGE SECTION SUMMARY DESCRIPTION [SHLIBDEPS] [ALL]
#                        [OWN package...] [DEPENDS package...] [RECOMMENDS package...] [SUGGESTS package...])
# OWN are packages of this project, needed in the very same version.
function(lxcolor_debian_package component package section summary description)
    cmake_parse_arguments(PARSE_ARGV 5 arg "SHLIBDEPS;ALL" "" "OWN;DEPENDS;RECOMMENDS;SUGGESTS")
    string(TOUPPER ${component} key)
    set(release "${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")
    set(depends ${arg_DEPENDS})
    foreach(own IN LISTS arg_OWN)
        list(APPEND depends "${own} (= ${release})")
    endforeach()
    list(JOIN depends ", " depends)
    list(JOIN arg_RECOMMENDS ", " recommends)
    list(JOIN arg_SUGGESTS ", " suggests)

    set(CPACK_DEBIAN_${key}_DESCRIPTION "${summary}\n${description}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${package} PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section} PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${depends}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_RECOMMENDS "${recommends}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_SUGGESTS "${suggests}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_SHLIBDEPS ${arg_SHLIBDEPS} PARENT_SCOPE)
    if(arg_ALL)
        set(CPACK_DEBIAN_${key}_PACKAGE_ARCHITECTURE all PARENT_SCOPE)
    endif()
endfunction()

set(about "LXColor holds colours for LED lighting fixtures, matches them to the measured
emitters of a fixture and turns them into DMX bytes.")
set(runtime_packages "")
if(BUILD_SHARED_LIBS)
    set(runtime_packages liblxcolor${PROJECT_VERSION_MAJOR})
    if(TARGET LXColorExtras)
        list(APPEND runtime_packages liblxcolorextras${PROJECT_VERSION_MAJOR})
    endif()
    if(TARGET LXColorWidgets)
        list(APPEND runtime_packages liblxcolorwidgets${PROJECT_VERSION_MAJOR})
    endif()
endif()

lxcolor_debian_package(lxcolor_runtime liblxcolor${PROJECT_VERSION_MAJOR} libs
    "colour library for LED lighting fixtures"
    "${about}\n.\nThis package contains the shared library."
    SHLIBDEPS RECOMMENDS lxcolor-data)
lxcolor_debian_package(lxcolor_extras liblxcolorextras${PROJECT_VERSION_MAJOR} libs
    "colour library for LED lighting fixtures - further classes"
    "${about}\n.\nThis package contains the second shared library, which builds upon the first."
    SHLIBDEPS OWN liblxcolor${PROJECT_VERSION_MAJOR})
lxcolor_debian_package(lxcolor_widgets liblxcolorwidgets${PROJECT_VERSION_MAJOR} libs
    "colour library for LED lighting fixtures - widgets"
    "${about}\n.\nThis package contains the third shared library: widgets for Qt applications."
    SHLIBDEPS OWN liblxcolor${PROJECT_VERSION_MAJOR} liblxcolorextras${PROJECT_VERSION_MAJOR})
lxcolor_debian_package(lxcolor_data lxcolor-data misc
    "colour library for LED lighting fixtures - data"
    "${about}\n.\nThis package contains translations, XML schemas and a sample fixture database."
    ALL)
lxcolor_debian_package(lxcolor_development liblxcolor-dev libdevel
    "colour library for LED lighting fixtures - development files"
    "${about}\n.\nThis package contains headers, the CMake package and pkg-config files."
    OWN ${runtime_packages} DEPENDS "qtbase5-dev (>= 5.15)" RECOMMENDS lxcolor-data SUGGESTS lxcolor-doc)
lxcolor_debian_package(lxcolor_tools lxcolor-tools utils
    "colour library for LED lighting fixtures - programs"
    "${about}\n.\nThis package contains programs that convert colours, list fixtures and show what\na fixture is sent."
    SHLIBDEPS OWN ${runtime_packages} RECOMMENDS lxcolor-data)
lxcolor_debian_package(lxcolor_documentation lxcolor-doc doc
    "colour library for LED lighting fixtures - documentation"
    "${about}\n.\nThis package contains the documents, the examples and the reference."
    ALL)

include(CPack)
