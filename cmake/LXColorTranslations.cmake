# Translations of the library's user-visible texts: one lxcolor_<language>.ts a language in LXColor/resources/translations.
#
# The normal build makes lxcolor_<language>.qm of each. The target update_translations takes new texts of the sources
# over into the .ts files; it is run by hand, for it changes files of the source tree.

set(LXCOLOR_TRANSLATED_SOURCES "${PROJECT_SOURCE_DIR}/LXColor/src")
if(EXISTS "${PROJECT_SOURCE_DIR}/extras/src")
    list(APPEND LXCOLOR_TRANSLATED_SOURCES "${PROJECT_SOURCE_DIR}/extras/src")
endif()
foreach(directory widgets/src apps/lxswatches)
    if(EXISTS "${PROJECT_SOURCE_DIR}/${directory}")
        list(APPEND LXCOLOR_TRANSLATED_SOURCES "${PROJECT_SOURCE_DIR}/${directory}")
    endif()
endforeach()
file(GLOB LXCOLOR_TS_FILES CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/LXColor/resources/translations/lxcolor_*.ts")
set(LXCOLOR_LUPDATE_OPTIONS -locations none -source-language en)

find_package(Qt5LinguistTools 5.15 QUIET)
if(NOT Qt5LinguistTools_FOUND)
    message(STATUS "Qt's linguist tools were not found: no translations are built")
    return()
endif()

set(LXCOLOR_QM_DIR "${PROJECT_BINARY_DIR}/translations")
set_source_files_properties(${LXCOLOR_TS_FILES} PROPERTIES OUTPUT_LOCATION "${LXCOLOR_QM_DIR}")
qt5_add_translation(LXCOLOR_QM_FILES ${LXCOLOR_TS_FILES} OPTIONS -silent)
add_custom_target(lxcolor_translations ALL DEPENDS ${LXCOLOR_QM_FILES})

add_custom_target(update_translations
    COMMAND Qt5::lupdate ${LXCOLOR_LUPDATE_OPTIONS} ${LXCOLOR_TRANSLATED_SOURCES} -ts ${LXCOLOR_TS_FILES}
    COMMENT "Taking the texts of the sources over into the .ts files"
    VERBATIM)
