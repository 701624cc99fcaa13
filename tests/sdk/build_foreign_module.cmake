# Installs the package, builds the foreign module against it in another folder, and lays it beside copies of the
# toy modules.
#   cmake -DBUILD=... -DSOURCE=... -DTOYS=... -DWORK=... -DGENERATOR=... -DBUILD_TYPE=... -DFLAGS=... -P ...
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}\n${output}")
    endif()
endfunction()
file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --component sdk --prefix ${WORK}/installed)
run(${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/build -G ${GENERATOR} -DCMAKE_BUILD_TYPE=${BUILD_TYPE}
    -DCMAKE_PREFIX_PATH=${WORK}/installed -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_FLAGS=${FLAGS})
run(${CMAKE_COMMAND} --build ${WORK}/build)
file(COPY ${TOYS}/ DESTINATION ${WORK}/program)
file(COPY ${WORK}/build/waters19.dll DESTINATION ${WORK}/program)
