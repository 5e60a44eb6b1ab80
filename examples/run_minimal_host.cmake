# Installs the package into an empty prefix, builds minimal_host against it, and asks it about an
# employee of the sample company.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE text ERROR_VARIABLE text)
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\nended with ${result}:\n${text}")
  endif()
  set(output "${text}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE} -B ${WORK}/build
    -DCMAKE_PREFIX_PATH=${WORK}/prefix -DCMAKE_BUILD_TYPE=${BUILD_TYPE} -DCMAKE_CXX_FLAGS=${FLAGS}
    -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER})
run(${CMAKE_COMMAND} --build ${WORK}/build)
set(ENV{KT7HR_DB} "Driver=SQLite;Database=${WORK}/company.db")
run(${KT7HR} init --sample)

# E0002 earns 42,000 a month: 42,000 / 30 / 8 an hour. A year of it less the expenses (100,000), the
# own allowance (60,000) and 11 months of social security (875 each) leaves 334,375; its tax is
# 7,500 + 10 % of 34,375, a twelfth of it a month.
run(${WORK}/build/minimal_host ${WORK}/company.db E0002 42000)
set(expected "hour rate 175.00\ntax 911.46\n")
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "minimal_host printed:\n${output}expected:\n${expected}")
endif()
