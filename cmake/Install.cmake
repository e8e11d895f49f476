# What `cmake --install` lays down: the dialog library with its headers, CMake package and pkg-config file; the embedded
# host; and the desk with its reference data.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/AlgoBatchImport)
set(header_dir ${CMAKE_INSTALL_INCLUDEDIR}/algo_batch_import)

set(desk_library_dir ${CMAKE_INSTALL_LIBDIR}/algodesk) # of the desk alone

algo_installed(algo_batch_import ${CMAKE_INSTALL_LIBDIR})
install(TARGETS algo_batch_import algo_host_api
  EXPORT AlgoBatchImportTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development)
install(FILES
  dialog/AlgoBatchImportParamSetting.h
  dialog/AlgoBatchImportExport.h
  DESTINATION ${header_dir}/dialog COMPONENT development)
install(DIRECTORY host/ DESTINATION ${header_dir}/host COMPONENT development FILES_MATCHING PATTERN "*.h")

install(EXPORT AlgoBatchImportTargets NAMESPACE AlgoBatchImport:: DESTINATION ${package_dir} COMPONENT development)
configure_package_config_file(cmake/AlgoBatchImportConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/AlgoBatchImportConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/AlgoBatchImportConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/AlgoBatchImportConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/AlgoBatchImportConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT development)
# Debian's libdir has a folder more than others.
file(RELATIVE_PATH pkgconfig_to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/algo_batch_import.pc.in ${CMAKE_CURRENT_BINARY_DIR}/algo_batch_import.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/algo_batch_import.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

if(TARGET algodesk)
  algo_installed(embedded_host ${desk_library_dir})
  algo_installed(algodesk ${CMAKE_INSTALL_BINDIR})
  file(RELATIVE_PATH libraries ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(algodesk PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries};$ORIGIN/${libraries}/algodesk")
  install(TARGETS embedded_host LIBRARY DESTINATION ${desk_library_dir} COMPONENT desk NAMELINK_SKIP)
  install(TARGETS algodesk RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT desk)
  install(DIRECTORY reference_data samples gateway/dictionaries DESTINATION ${CMAKE_INSTALL_DATADIR}/algodesk COMPONENT desk)
  install(FILES desk/package/algodesk.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT desk)
  install(FILES desk/package/algodesk.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT desk)
  install(FILES desk/package/algodesk.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME algodesk COMPONENT desk)
  set(manual ${CMAKE_CURRENT_BINARY_DIR}/algodesk.1)
  configure_file(docs/algodesk.1 ${manual} COPYONLY)
  execute_process(COMMAND gzip -9nfk ${manual} COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${manual}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT desk)
endif()

include(${CMAKE_CURRENT_LIST_DIR}/DebianPackages.cmake)
