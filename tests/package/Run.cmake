# run(COMMAND…): a failure ends the test with what the command printed; otherwise ${output} holds its standard output.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGN}\n${output}\n${errors}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

# configure(SOURCE BINARY OPTIONS…): with the compiler and the flags of the build under test.
function(configure source binary)
  set(flags)
  if(SANITIZE)
    set(flags -DCMAKE_CXX_FLAGS=-fsanitize=${SANITIZE})
  endif()
  run(${CMAKE_COMMAND} -S ${source} -B ${binary} -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${CXX_COMPILER}
    -DCMAKE_BUILD_TYPE=${BUILD_TYPE} ${flags} ${ARGN})
endfunction()
