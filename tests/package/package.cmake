# Installs the build, moves the installed tree elsewhere, and builds and runs an outside project with it.
function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

set(prefix ${WORK_DIR}/moved)
file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BINARY_DIR} --prefix ${WORK_DIR}/installed)
file(RENAME ${WORK_DIR}/installed ${prefix})

set(id org.kelvor.Kelvor)
foreach(file applications/${id}.desktop icons/hicolor/scalable/apps/${id}.svg icons/hicolor/48x48/apps/${id}.png
        metainfo/${id}.metainfo.xml mime/packages/${id}.xml)
    if(NOT EXISTS ${prefix}/share/${file})
        message(FATAL_ERROR "share/${file} is not installed")
    endif()
endforeach()

run(${CMAKE_COMMAND} ${OPTIONS} -DCMAKE_PREFIX_PATH=${prefix} -DKELVOR_SOURCE_DIR=${SOURCE_DIR}
    -S ${CMAKE_CURRENT_LIST_DIR}/outside -B ${WORK_DIR}/outside)
run(${CMAKE_COMMAND} --build ${WORK_DIR}/outside)

# Both the installed program and the outside project's own take the outside plug-ins, and would say if they did not.
foreach(program ${prefix}/bin/kelvor ${WORK_DIR}/outside/outside_inspector)
    set(arguments --select KeyLight.color --screenshot ${WORK_DIR}/picture.png
        ${SOURCE_DIR}/examples/scenes/orrery.iv)
    file(REMOVE ${WORK_DIR}/picture.png)
    run(${program} --plugin ${WORK_DIR}/outside/plugin/libcolor_plugin.so
        --plugin ${WORK_DIR}/outside/node-plugin/libtransform_plugin.so ${arguments})
    file(SIZE ${WORK_DIR}/picture.png size)
    if(size LESS 1000)
        message(FATAL_ERROR "${program} wrote a picture of ${size} bytes")
    endif()

    execute_process(COMMAND ${program} --plugin ${WORK_DIR}/missing.so ${arguments}
        RESULT_VARIABLE result ERROR_VARIABLE message)
    if(NOT result EQUAL 1 OR NOT message MATCHES "missing.so")
        message(FATAL_ERROR "${program} went on without a plug-in: ${result}, ${message}")
    endif()
endforeach()
