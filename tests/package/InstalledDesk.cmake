# Installs the desk below WORK_DIR: it reads the data installed with it, and says so where they are gone.
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)

file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR})
set(data ${WORK_DIR}/share/algodesk/reference_data)
set(ENV{QT_QPA_PLATFORM} offscreen)
set(ENV{ASAN_OPTIONS} detect_leaks=0)

file(APPEND ${data}/accounts.csv "42,装好的账户,Cash,Cash,node\n")
run(${WORK_DIR}/bin/algodesk accounts)
if(NOT output MATCHES "装好的账户")
  message(FATAL_ERROR "not the accounts installed with the program:\n${output}")
endif()

foreach(comfort share/man/man1/algodesk.1.gz share/bash-completion/completions/algodesk)
  if(NOT EXISTS ${WORK_DIR}/${comfort})
    message(FATAL_ERROR "not installed: ${comfort}")
  endif()
endforeach()

file(REMOVE_RECURSE ${data})
execute_process(COMMAND ${WORK_DIR}/bin/algodesk accounts RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
if(NOT status EQUAL 2 OR NOT output STREQUAL "" OR NOT errors MATCHES "^[^\n]*${data}[^\n]*\n$")
  message(FATAL_ERROR "without its data: ${status}\n${output}\n${errors}")
endif()
