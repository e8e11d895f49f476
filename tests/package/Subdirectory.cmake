# Builds the library's objects below a client's project against that client's own host headers; and what the client sees of
# the library, where these come from an imported target too.
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)
set(SANITIZE) # nothing is run

file(REMOVE_RECURSE ${WORK_DIR})
foreach(imported OFF ON)
  configure(${CMAKE_CURRENT_LIST_DIR}/foreign_host ${WORK_DIR}/imported_${imported}
    -DLIBRARY_SOURCE=${SOURCE_DIR} -DIMPORTED_HOST=${imported} -DCMAKE_CXX_FLAGS_DEBUG= -DCMAKE_UNITY_BUILD=ON)
  run(${CMAKE_COMMAND} --build ${WORK_DIR}/imported_${imported} --target client)
endforeach()
run(${CMAKE_COMMAND} --build ${WORK_DIR}/imported_OFF --target algo_batch_import_objects)
