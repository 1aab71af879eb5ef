# Installs the built tree into a private prefix, then configures, builds and runs a small host
# project against it with find_package(TavoLibGui).
set(prefix ${BUILD_DIR}/install-root)
set(consumer ${BUILD_DIR}/consumer-build)
file(REMOVE_RECURSE ${prefix} ${consumer})

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed (${result}): ${ARGN}")
    endif()
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/consumer -B ${consumer} -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix})
run(${CMAKE_COMMAND} --build ${consumer})
run(${consumer}/consumer)
