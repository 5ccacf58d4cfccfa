# What `cmake --install` puts where. Each file belongs to a component, which is what the packages are cut along:
#
#   lxcolor_runtime         libLXColor
#   lxcolor_extras          libLXColorExtras
#   lxcolor_widgets         libLXColorWidgets
#   lxcolor_data            translations, the sample fixture database, schemas
#   lxcolor_development     headers, CMake package, pkg-config files, static libraries
#   lxcolor_tools           programs, their manual pages and shell completion
#   lxcolor_documentation   documents, examples, the reference in HTML

include(CMakePackageConfigHelpers)

set(LXCOLOR_INSTALL_DATADIR "${CMAKE_INSTALL_DATADIR}/LXColor")
set(LXCOLOR_INSTALL_CMAKEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/LXColor")

# The names of the Qt modules that users of a target link, without "Qt5::".
function(lxcolor_qt_modules target result)
    get_target_property(links ${target} INTERFACE_LINK_LIBRARIES)
    string(REGEX MATCHALL "Qt5::[A-Za-z0-9]+" modules "${links}")
    list(TRANSFORM modules REPLACE "Qt5::" "")
    list(REMOVE_DUPLICATES modules)
    set(${result} "${modules}" PARENT_SCOPE)
endfunction()

# Programs and libraries find this project's libraries where they are relative to themselves, so that an installed tree
# can be moved.
function(lxcolor_set_install_rpath target directory)
    if(DEFINED CMAKE_INSTALL_RPATH)
        return()
    endif()
    file(RELATIVE_PATH to_libraries "/prefix/${directory}" "/prefix/${CMAKE_INSTALL_LIBDIR}")
    string(REGEX REPLACE "/$" "" rpath "$ORIGIN/${to_libraries}")
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "${rpath}")
endfunction()

# lxcolor_install_pkgconfig(TARGET REQUIRES...): TARGET.pc, with paths relative to the file where the layout allows it.
function(lxcolor_install_pkgconfig target)
    if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
        set(PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
    else()
        file(RELATIVE_PATH up "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
        string(REGEX REPLACE "/$" "" PC_PREFIX "\${pcfiledir}/${up}")
    endif()
    foreach(dir LIBDIR INCLUDEDIR DATADIR)
        set(PC_${dir} "${CMAKE_INSTALL_${dir}}")
        if(NOT IS_ABSOLUTE "${PC_${dir}}")
            set(PC_${dir} "\${prefix}/${PC_${dir}}")
        endif()
    endforeach()

    set(PC_NAME ${target})
    set(PC_CFLAGS "-I\${includedir}/${target}")
    if(NOT BUILD_SHARED_LIBS)
        string(APPEND PC_CFLAGS " -DLXCOLOR_STATIC")
    endif()
    set(requires ${ARGN})
    lxcolor_qt_modules(${target} modules)
    foreach(module IN LISTS modules)
        list(APPEND requires "Qt5${module} >= 5.15")
    endforeach()
    list(JOIN requires ", " PC_REQUIRES)

    configure_file("${PROJECT_SOURCE_DIR}/cmake/LXColor.pc.in" "${PROJECT_BINARY_DIR}/${target}.pc" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/${target}.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
            COMPONENT lxcolor_development)
endfunction()

# lxcolor_install_library(TARGET DIRECTORY HEADERS COMPONENT): a library and the headers that the variable HEADERS of
# its directory lists.
function(lxcolor_install_library target directory headers_variable component)
    set(directory "${PROJECT_SOURCE_DIR}/${directory}")
    get_directory_property(headers DIRECTORY "${directory}" DEFINITION ${headers_variable})
    list(TRANSFORM headers PREPEND "${directory}/")
    set(include_dir "${CMAKE_INSTALL_INCLUDEDIR}/${target}")
    install(FILES ${headers} DESTINATION "${include_dir}" COMPONENT lxcolor_development)

    lxcolor_set_install_rpath(${target} "${CMAKE_INSTALL_LIBDIR}")
    install(TARGETS ${target} EXPORT ${target}Targets
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT ${component} NAMELINK_COMPONENT lxcolor_development
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT lxcolor_development
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT ${component}
        INCLUDES DESTINATION "${include_dir}")
    install(EXPORT ${target}Targets NAMESPACE LXColor:: DESTINATION "${LXCOLOR_INSTALL_CMAKEDIR}"
            COMPONENT lxcolor_development)
endfunction()

# Libraries
lxcolor_install_library(LXColor LXColor LXCOLOR_PUBLIC_HEADERS lxcolor_runtime)
lxcolor_install_pkgconfig(LXColor)
lxcolor_qt_modules(LXColor LXCOLOR_QT_MODULES)
if(TARGET LXColorExtras)
    lxcolor_install_library(LXColorExtras extras LXCOLOR_EXTRAS_PUBLIC_HEADERS lxcolor_extras)
    lxcolor_install_pkgconfig(LXColorExtras "LXColor = ${PROJECT_VERSION}")
    lxcolor_qt_modules(LXColorExtras LXCOLOR_EXTRAS_QT_MODULES)
endif()
if(TARGET LXColorWidgets)
    lxcolor_install_library(LXColorWidgets widgets LXCOLOR_WIDGETS_PUBLIC_HEADERS lxcolor_widgets)
    lxcolor_install_pkgconfig(LXColorWidgets "LXColorExtras = ${PROJECT_VERSION}")
    lxcolor_qt_modules(LXColorWidgets LXCOLOR_WIDGETS_QT_MODULES)
endif()

# CMake package
list(JOIN LXCOLOR_QT_MODULES " " LXCOLOR_QT_MODULES)
list(JOIN LXCOLOR_EXTRAS_QT_MODULES " " LXCOLOR_EXTRAS_QT_MODULES)
list(JOIN LXCOLOR_WIDGETS_QT_MODULES " " LXCOLOR_WIDGETS_QT_MODULES)
set(PACKAGE_DATADIR "${LXCOLOR_INSTALL_DATADIR}")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/LXColorConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/LXColorConfig.cmake"
    INSTALL_DESTINATION "${LXCOLOR_INSTALL_CMAKEDIR}"
    PATH_VARS PACKAGE_DATADIR)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/LXColorConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/LXColorConfig.cmake" "${PROJECT_BINARY_DIR}/LXColorConfigVersion.cmake"
        DESTINATION "${LXCOLOR_INSTALL_CMAKEDIR}" COMPONENT lxcolor_development)

# Data. The sample fixture database and the presets stay out of the places where programs look for their own.
install(DIRECTORY LXColor/resources/ DESTINATION "${LXCOLOR_INSTALL_DATADIR}" COMPONENT lxcolor_data
        PATTERN translations EXCLUDE)
if(LXCOLOR_QM_FILES)
    install(FILES ${LXCOLOR_QM_FILES} DESTINATION "${LXCOLOR_INSTALL_DATADIR}/translations" COMPONENT lxcolor_data)
endif()

# Programs
foreach(program lxcolor lxswatches)
    if(TARGET ${program})
        lxcolor_set_install_rpath(${program} "${CMAKE_INSTALL_BINDIR}")
        install(TARGETS ${program} RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT lxcolor_tools)
    endif()
endforeach()
if(TARGET lxcolor)
    install(FILES apps/lxcolor/completions/lxcolor DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions"
            COMPONENT lxcolor_tools)
endif()
if(TARGET lxswatches)
    install(FILES "${PROJECT_BINARY_DIR}/man/lxswatches.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1"
            COMPONENT lxcolor_tools)
    install(FILES apps/lxswatches/lxswatches.desktop DESTINATION "${CMAKE_INSTALL_DATADIR}/applications"
            COMPONENT lxcolor_tools)
    install(FILES apps/lxswatches/lxswatches.svg DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps"
            COMPONENT lxcolor_tools)
endif()
if(TARGET lxcolor_manual)
    install(DIRECTORY "${PROJECT_BINARY_DIR}/man/man1" DESTINATION "${CMAKE_INSTALL_MANDIR}" COMPONENT lxcolor_tools)
endif()

# Documents
file(GLOB documents CONFIGURE_DEPENDS
    "${PROJECT_SOURCE_DIR}/README.md" "${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${PROJECT_SOURCE_DIR}/LICEN[CS]E*")
install(FILES ${documents} DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT lxcolor_documentation)
install(DIRECTORY docs DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT lxcolor_documentation
        FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "*.svg")
if(IS_DIRECTORY "${PROJECT_SOURCE_DIR}/examples")
    install(DIRECTORY examples DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT lxcolor_documentation
            FILES_MATCHING PATTERN "*.cpp" PATTERN "*.h" PATTERN "*.md")
endif()
install(DIRECTORY "${PROJECT_BINARY_DIR}/docs/html" DESTINATION "${CMAKE_INSTALL_DOCDIR}" OPTIONAL
        COMPONENT lxcolor_documentation)
