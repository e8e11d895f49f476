# Installs the library below WORK_DIR and builds the example against it alone, once by its CMake package and once by its
# pkg-config file; the program imports its sample, with a byte order mark and without.
include(${CMAKE_CURRENT_LIST_DIR}/Run.cmake)

function(expect_import program sample)
  run(${CMAKE_COMMAND} -E env ASAN_OPTIONS=detect_leaks=0 ${program} --import ${sample})
  foreach(expected "600000.SH" "\"委托数量\": \"1000\"" "\"交易方向\": \"Buy\"" "\"sysnodeid\": \"node-1\"")
    string(FIND "${output}" "${expected}" at)
    if(at EQUAL -1)
      message(FATAL_ERROR "${expected} is not in what the example created:\n${output}")
    endif()
  endforeach()
endfunction()

# The answer of pkg-config as a list.
function(pkg_config result)
  run(${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${WORK_DIR}/prefix/${LIBDIR}/pkgconfig pkg-config ${ARGN})
  string(STRIP "${output}" output)
  separate_arguments(output UNIX_COMMAND "${output}")
  set(${result} ${output} PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/prefix)

configure(${EXAMPLE_DIR} ${WORK_DIR}/build -DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix)
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
expect_import(${WORK_DIR}/build/minimal_host ${EXAMPLE_DIR}/sample.csv)

pkg_config(flags --cflags --libs algo_batch_import)
pkg_config(headers --variable=includedir algo_batch_import)
pkg_config(libraries --variable=libdir algo_batch_import)
pkg_config(qt_tools --variable=host_bins Qt5Core)
set(sources ${EXAMPLE_DIR}/main.cpp ${EXAMPLE_DIR}/HostServices.cpp ${EXAMPLE_DIR}/HostWidgets.cpp)
foreach(header SolveyAccountComboBox SolveyDecimalLineEdit SolveyPushButton ZelMessageBox ZelTableView)
  run(${qt_tools}/moc ${headers}/host/${header}.h -o ${WORK_DIR}/moc_${header}.cpp)
  list(APPEND sources ${WORK_DIR}/moc_${header}.cpp)
endforeach()
if(SANITIZE)
  list(APPEND flags -fsanitize=${SANITIZE})
endif()
run(${CXX_COMPILER} -std=c++17 -fPIC ${sources} ${flags} -Wl,-rpath,${libraries} -o ${WORK_DIR}/by_pkg_config)

string(ASCII 239 187 191 byte_order_mark)
file(READ ${EXAMPLE_DIR}/sample.csv sample)
file(WRITE ${WORK_DIR}/marked.csv "${byte_order_mark}${sample}")
expect_import(${WORK_DIR}/by_pkg_config ${WORK_DIR}/marked.csv)
