# lxcolor_configure_target(TARGET): what every target of the project has in common.
#
# - C++17 without extensions, hidden visibility.
# - Numbers come out the same to the last bit on every compiler and at every optimisation level, so floating-point
#   contraction (fused multiply-add) is off and nothing like fast-math is ever on.
# - Messages carry file, line and function in every kind of build; file names are relative to the project.
# - Warnings, and sanitizers where the build asks for them.

set(LXCOLOR_SANITIZER_IGNORELIST "${CMAKE_CURRENT_LIST_DIR}/SanitizerIgnoreList.txt")
set(LXCOLOR_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wconversion)

function(lxcolor_configure_target target)
    set_target_properties(${target} PROPERTIES
        CXX_STANDARD 17
        CXX_STANDARD_REQUIRED ON
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_compile_options(${target} PRIVATE
        -ffp-contract=off
        # Nobody replaces single functions of the library at run time: calls inside it are direct and can be inlined.
        -fno-semantic-interposition
        -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=
        ${LXCOLOR_WARNINGS}
        # Qt's own macros (QSKIP) leave out their variadic arguments, which clang reports where they are used.
        $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>
        $<$<BOOL:${LXCOLOR_WARNINGS_AS_ERRORS}>:-Werror>)
    target_compile_definitions(${target} PRIVATE
        QT_MESSAGELOGCONTEXT
        QT_NO_KEYWORDS
        QT_DEPRECATED_WARNINGS_SINCE=0x050000)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "i.86" OR CMAKE_CXX_FLAGS MATCHES "-m32")
        target_compile_options(${target} PRIVATE -msse2 -mfpmath=sse)
    endif()
    lxcolor_sanitize_target(${target})
endfunction()

function(lxcolor_sanitize_target target)
    if(NOT LXCOLOR_SANITIZE)
        return()
    endif()
    set(flags -fsanitize=${LXCOLOR_SANITIZE} -fno-omit-frame-pointer)
    if(LXCOLOR_SANITIZE MATCHES "undefined")
        list(APPEND flags -fno-sanitize-recover=all)
        if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
            # Numbers that do not fit are changed by a cast that says so, or not at all; Qt's headers see it otherwise.
            list(APPEND flags
                -fsanitize=float-cast-overflow,implicit-conversion
                -fsanitize-ignorelist=${LXCOLOR_SANITIZER_IGNORELIST})
        endif()
    endif()
    target_compile_options(${target} PRIVATE ${flags})
    target_link_options(${target} PUBLIC ${flags})
endfunction()
