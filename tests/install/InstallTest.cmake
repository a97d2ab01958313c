# Installs the build into a scratch prefix, runs the installed program, builds a program of its own against
# the installed package and runs that. Where pictures are built (UI), a second one writes one, else it is told
# why it cannot.
#   cmake -DBUILD_DIR= -DWORK_DIR= -DCONSUMER= -DBUILD_TYPE= -DCXX= -DCXX_FLAGS= -DGENERATOR= -DVERSION= -DUI= -P InstallTest.cmake
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
    FX_AlgenConfigVersion.cmake FX_AlgenTargets.cmake README.md LICENSE
    share/doc/FX_Algen/charts.md share/doc/FX_Algen/pictures/dominance.png)
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

function(build_consumer source name)
    run(${CMAKE_COMMAND} -S ${source} -B ${WORK_DIR}/${name} -G ${GENERATOR}
        -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=${BUILD_TYPE} -DCMAKE_CXX_COMPILER=${CXX}
        "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}" ${ARGN})
    run(${CMAKE_COMMAND} --build ${WORK_DIR}/${name})
endfunction()

# A host without pictures needs no toolkit, neither to build nor to run.
build_consumer(${CONSUMER} consumer -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON)
run(${WORK_DIR}/consumer/consumer ${WORK_DIR}/consumer.db)
file(GET_RUNTIME_DEPENDENCIES EXECUTABLES ${WORK_DIR}/consumer/consumer
    RESOLVED_DEPENDENCIES_VAR needed UNRESOLVED_DEPENDENCIES_VAR missing)
set(toolkit ${needed})
list(FILTER toolkit INCLUDE REGEX "Qt")
if(toolkit OR NOT needed)
    message(FATAL_ERROR "The host without pictures needs: ${needed}")
endif()

if(UI)
    must_exist(include/FX_Algen/ui/Pictures.h FX_AlgenUiTargets.cmake)
    build_consumer(${CONSUMER}_ui consumer_ui)
    run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${WORK_DIR}/consumer_ui/consumer_ui ${WORK_DIR}/picture.png)
    must_exist(../picture.png)
else()
    execute_process(COMMAND ${CMAKE_COMMAND} -S ${CONSUMER}_ui -B ${WORK_DIR}/consumer_ui -G ${GENERATOR}
        -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${CXX} RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE err)
    string(REGEX REPLACE "[ \n]+" " " err "${err}")
    if(result EQUAL 0 OR NOT err MATCHES "was built without pictures and windows")
        message(FATAL_ERROR "A host that wants pictures is told: ${err}")
    endif()
    execute_process(COMMAND ${prefix}/bin/fxalgen chart ${WORK_DIR}/program.db quality-classes -o ${WORK_DIR}/picture.png
        RESULT_VARIABLE result ERROR_VARIABLE err)
    if(NOT result EQUAL 1 OR NOT err MATCHES "draws no pictures")
        message(FATAL_ERROR "fxalgen chart ended with ${result} and said: ${err}")
    endif()
endif()
