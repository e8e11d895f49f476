# `cpack` makes three packages: the dialog library, what a client builds with, and the desk.
set(CPACK_PACKAGE_NAME algo-batch-import)
set(CPACK_PACKAGE_CONTACT "AlgoBatchImport maintainers <maintainers@algobatchimport.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL library development)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${CMAKE_CURRENT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR} ${CMAKE_CURRENT_BINARY_DIR}/${desk_library_dir})

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libalgo-batch-import${PROJECT_VERSION_MAJOR})
set(same_version "${CPACK_DEBIAN_LIBRARY_PACKAGE_NAME} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "Batch import of algorithmic-order parameters: dialog library
 The dialog imports a table file of algorithmic orders and hands on a checked
 map of parameters for each. Its client brings the services that it asks.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libalgo-batch-import-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${same_version}, qtbase5-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Batch import of algorithmic-order parameters: headers
 The headers of the dialog and of the services that a client brings, with a
 CMake package and a pkg-config file.")

if(TARGET algodesk)
  list(APPEND CPACK_COMPONENTS_ALL desk)
  set(CPACK_DEBIAN_DESK_PACKAGE_NAME algodesk)
  set(CPACK_DEBIAN_DESK_PACKAGE_SECTION x11)
  set(CPACK_DEBIAN_DESK_PACKAGE_DEPENDS "${same_version}, libqt5sql5-sqlite, qttranslations5-l10n")
  set(CPACK_DEBIAN_DESK_PACKAGE_RECOMMENDS fonts-noto-cjk)
  set(CPACK_COMPONENT_DESK_DESCRIPTION "Batch import of algorithmic-order parameters: desk
 A window and a headless runner around the dialog, with a reference data folder
 and a ledger of batches of its own.")
endif()
# What every package must tell of itself. gzip without a time, so that each build gives the same bytes.
configure_file(cmake/debian/copyright.in debian/copyright @ONLY)
configure_file(cmake/debian/changelog.in debian/changelog @ONLY)
execute_process(COMMAND gzip -9nfk ${CMAKE_CURRENT_BINARY_DIR}/debian/changelog COMMAND_ERROR_IS_FATAL ANY)
foreach(component ${CPACK_COMPONENTS_ALL})
  string(TOUPPER ${component} variable)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/debian/copyright ${CMAKE_CURRENT_BINARY_DIR}/debian/changelog.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${variable}_PACKAGE_NAME} COMPONENT ${component})
endforeach()

include(CPack)
