# Builds the example in SOURCE as a stranger would, in WORK against the package installed there; a
# command that fails ends the test. Sets `program` and makes the sample company in WORK/company.db.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE text ERROR_VARIABLE text)
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\nended with ${result}:\n${text}")
  endif()
  set(output "${text}" PARENT_SCOPE)
endfunction()

function(expect text)
  if(NOT output STREQUAL text)
    message(FATAL_ERROR "${program} printed:\n${output}expected:\n${text}")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE} -B ${WORK}/build
    -DCMAKE_PREFIX_PATH=${WORK}/prefix -DCMAKE_BUILD_TYPE=${BUILD_TYPE} -DCMAKE_CXX_FLAGS=${FLAGS}
    -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER})
run(${CMAKE_COMMAND} --build ${WORK}/build)
get_filename_component(example ${SOURCE} NAME)
set(program ${WORK}/build/${example})
set(ENV{KT7HR_DB} "Driver=SQLite;Database=${WORK}/company.db")
run(${KT7HR} init --sample)
