# What a program that reads strangers' files is built with, and nothing of the machine that built it.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported()

add_compile_options(-fstack-protector-strong -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
check_cxx_compiler_flag(-fcf-protection ALGO_HAS_CF_PROTECTION) # x86 alone
if(ALGO_HAS_CF_PROTECTION)
  add_compile_options(-fcf-protection)
endif()
add_link_options(LINKER:-z,relro,-z,now)

# Needs optimisation, and sanitizers look at the same places themselves.
set(fortify_level 2)
if((CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12) OR
   (CMAKE_CXX_COMPILER_ID MATCHES Clang AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12))
  set(fortify_level 3)
endif()
if(NOT ALGO_SANITIZE AND NOT ALGO_COVERAGE)
  add_compile_options($<$<CONFIG:Release>:-U_FORTIFY_SOURCE> $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=${fortify_level}>)
endif()

# algo_installed(TARGET FOLDER): built where it will stand below a prefix, so that the build changes no search path on
# installing, which CMake makes room for by an empty entry: the current folder.
function(algo_installed target folder)
  set_target_properties(${target} PROPERTIES
    BUILD_WITH_INSTALL_RPATH ON
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${folder}
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${folder})
endfunction()
