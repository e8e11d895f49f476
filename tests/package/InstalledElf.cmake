# Installs everything below WORK_DIR and looks at its programs and libraries.
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)

file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR})
set(elf_test bash ${CMAKE_CURRENT_LIST_DIR}/elf_test.sh)
run(${elf_test} search_paths ${WORK_DIR})
if(NOT INSTRUMENTED OR INSTRUMENTED STREQUAL "OFF") # sanitizers and coverage keep the names of sources
  run(${elf_test} no_path ${WORK_DIR} ${SOURCE_DIR})
endif()

file(GLOB_RECURSE libraries ${WORK_DIR}/lib*/*.so.?)
list(LENGTH libraries count)
if(NOT count EQUAL 2)
  message(FATAL_ERROR "not the dialog's and the host's library: ${libraries}")
endif()
