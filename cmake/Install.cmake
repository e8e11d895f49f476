# What `cmake --install` lays down: the dialog library with its headers, CMake package and pkg-config file; the embedded
# host; and the desk with its reference data.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/AlgoBatchImport)
set(header_dir ${CMAKE_INSTALL_INCLUDEDIR}/algo_batch_import)

install(TARGETS algo_batch_import algo_host_api
  EXPORT AlgoBatchImportTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES
  dialog/AlgoBatchImportParamSetting.h
  dialog/AlgoBatchImportExport.h
  DESTINATION ${header_dir}/dialog)
install(DIRECTORY host/ DESTINATION ${header_dir}/host FILES_MATCHING PATTERN "*.h")

install(EXPORT AlgoBatchImportTargets NAMESPACE AlgoBatchImport:: DESTINATION ${package_dir})
configure_package_config_file(cmake/AlgoBatchImportConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/AlgoBatchImportConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/AlgoBatchImportConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/AlgoBatchImportConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/AlgoBatchImportConfigVersion.cmake
  DESTINATION ${package_dir})
# Debian's libdir has a folder more than others.
file(RELATIVE_PATH pkgconfig_to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/algo_batch_import.pc.in ${CMAKE_CURRENT_BINARY_DIR}/algo_batch_import.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/algo_batch_import.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(TARGET algodesk)
  install(TARGETS embedded_host LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} NAMELINK_SKIP)
  install(TARGETS algodesk RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(DIRECTORY reference_data samples gateway/dictionaries DESTINATION ${CMAKE_INSTALL_DATADIR}/algodesk)
  install(FILES desk/package/algodesk.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES desk/package/algodesk.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()

set(CPACK_PACKAGE_NAME algodesk)
set(CPACK_PACKAGE_CONTACT "AlgoBatchImport maintainers <maintainers@algobatchimport.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Batch import of algorithmic-order parameters: desk and dialog library")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION x11)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${CMAKE_CURRENT_BINARY_DIR}/embedded_host ${CMAKE_CURRENT_BINARY_DIR}/dialog)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt5sql5-sqlite")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-noto-cjk")
include(CPack)
