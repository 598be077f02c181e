# What every target of this project has in common: language level, warnings, visibility, sanitizers and the place
# of what it builds. The build tree has the layout of the installed tree, so that a program finds its plug-ins the
# same way in both.

set(KELVOR_INSTALL_BINDIR bin)
set(KELVOR_INSTALL_LIBDIR lib)
set(KELVOR_INSTALL_PLUGINDIR lib/kelvor/plugins)

function(kelvor_target target)
    get_target_property(type ${target} TYPE)
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES
        AUTOMOC ON
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${KELVOR_INSTALL_BINDIR}
        LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${KELVOR_INSTALL_LIBDIR})
    target_compile_options(${target} PRIVATE -Wall -Wextra
        $<$<BOOL:${KELVOR_WARNINGS_AS_ERRORS}>:-Werror>)
    # Coin's headers are not free of warnings of their own; theirs are not ours to mend.
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_TO_ASCII QT_NO_FOREACH)
    if(KELVOR_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${KELVOR_SANITIZE} -fno-omit-frame-pointer
            -fno-sanitize-recover=undefined)
        if(NOT type STREQUAL "OBJECT_LIBRARY")
            target_link_options(${target} PRIVATE -fsanitize=${KELVOR_SANITIZE})
        endif()
    endif()
endfunction()
