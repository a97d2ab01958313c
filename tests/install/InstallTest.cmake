# Installs the build into a scratch prefix, runs the installed program, builds a program of its own against
# the installed package and runs that.
#   cmake -DBUILD_DIR= -DWORK_DIR= -DCONSUMER= -DBUILD_TYPE= -DCXX= -DCXX_FLAGS= -DGENERATOR= -DVERSION= -P InstallTest.cmake
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT result EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${command}\nended with ${result}\n${out}\n${err}")
    endif()
    set(said "${out}" PARENT_SCOPE)
endfunction()

function(must_exist)
    foreach(pattern IN LISTS ARGN)
        file(GLOB_RECURSE found ${prefix}/${pattern})
        if(NOT found)
            message(FATAL_ERROR "Not installed: ${pattern}")
        endif()
    endforeach()
endfunction()

set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
must_exist(bin/fxalgen include/FX_Algen/AL_PS.h include/FX_Algen/Store.h FX_AlgenConfig.cmake
    FX_AlgenConfigVersion.cmake FX_AlgenTargets.cmake README.md LICENSE)
file(GLOB_RECURSE foreign ${prefix}/include/*)
list(FILTER foreign EXCLUDE REGEX "/include/FX_Algen/(ui/)?[A-Za-z_]+\\.h$")
if(foreign)
    message(FATAL_ERROR "Installed beside the public headers: ${foreign}")
endif()

run(${prefix}/bin/fxalgen --version)
if(NOT said MATCHES "${VERSION}")
    message(FATAL_ERROR "fxalgen --version says '${said}' and not ${VERSION}")
endif()

run(${prefix}/bin/fxalgen create ${WORK_DIR}/program.db)
must_exist(../program.db)

run(${CMAKE_COMMAND} -S ${CONSUMER} -B ${WORK_DIR}/consumer -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=${BUILD_TYPE} -DCMAKE_CXX_COMPILER=${CXX}
    "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}")
run(${CMAKE_COMMAND} --build ${WORK_DIR}/consumer)
run(${WORK_DIR}/consumer/consumer ${WORK_DIR}/consumer.db)
