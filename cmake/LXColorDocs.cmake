# The reference in HTML, from the comments of the public headers: the target docs, into docs/html of the build tree.
find_package(Doxygen 1.9 QUIET)
if(NOT DOXYGEN_FOUND)
    message(STATUS "Doxygen was not found: the reference cannot be built")
    return()
endif()

# Paths of the headers that the variable HEADERS of DIRECTORY lists.
function(lxcolor_public_headers directory headers_variable result)
    get_directory_property(headers DIRECTORY "${PROJECT_SOURCE_DIR}/${directory}" DEFINITION ${headers_variable})
    list(TRANSFORM headers PREPEND "${PROJECT_SOURCE_DIR}/${directory}/")
    set(${result} "${headers}" PARENT_SCOPE)
endfunction()

lxcolor_public_headers(LXColor LXCOLOR_PUBLIC_HEADERS documented)
if(TARGET LXColorExtras)
    lxcolor_public_headers(extras LXCOLOR_EXTRAS_PUBLIC_HEADERS documented_extras)
    list(APPEND documented ${documented_extras})
endif()
if(TARGET LXColorWidgets)
    lxcolor_public_headers(widgets LXCOLOR_WIDGETS_PUBLIC_HEADERS documented_widgets)
    list(APPEND documented ${documented_widgets})
endif()

# Doxygen passes over free functions, without a word, where it knows nothing of their header.
set(LXCOLOR_DOXYGEN_DIR "${PROJECT_BINARY_DIR}/docs")
set(header_blocks "")
foreach(header IN LISTS documented)
    get_filename_component(name "${header}" NAME)
    string(APPEND header_blocks "/** \\file ${name}\n * Included as `<${name}>`. */\n")
endforeach()
file(GENERATE OUTPUT "${LXCOLOR_DOXYGEN_DIR}/headers.dox" CONTENT "${header_blocks}")
list(APPEND documented "${LXCOLOR_DOXYGEN_DIR}/headers.dox" "${PROJECT_SOURCE_DIR}/docs/reference.md")

set(LXCOLOR_DOXYFILE "${LXCOLOR_DOXYGEN_DIR}/Doxyfile")
list(JOIN documented "\" \"" LXCOLOR_DOXYGEN_INPUT)
set(LXCOLOR_DOXYGEN_INPUT "\"${LXCOLOR_DOXYGEN_INPUT}\"")
configure_file(docs/Doxyfile.in "${LXCOLOR_DOXYFILE}" @ONLY)

add_custom_command(OUTPUT "${LXCOLOR_DOXYGEN_DIR}/html/index.html"
    COMMAND Doxygen::doxygen "${LXCOLOR_DOXYFILE}"
    DEPENDS ${documented} "${LXCOLOR_DOXYFILE}"
    COMMENT "Building the reference"
    VERBATIM)
if(LXCOLOR_BUILD_DOCS)
    set(all ALL)
endif()
add_custom_target(docs ${all} DEPENDS "${LXCOLOR_DOXYGEN_DIR}/html/index.html")
