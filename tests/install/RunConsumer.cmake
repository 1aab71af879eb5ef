# Installs the built tree into a private prefix, checks that the installed headers declare
# nothing the libraries keep hidden, then configures, builds and runs a small host project
# against it with find_package(TavoLibGui). The host compiles every installed header alone.
cmake_minimum_required(VERSION 3.18)
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

include(${CMAKE_CURRENT_LIST_DIR}/CheckExports.cmake)
check_exports(${OBJECTS_FILE} ${prefix}/include/TavoLib)

run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/consumer -B ${consumer} -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${CXX_COMPILER}
    -DCMAKE_CXX_COMPILER_LAUNCHER=${COMPILER_LAUNCHER})
run(${CMAKE_COMMAND} --build ${consumer})
run(${consumer}/consumer)
