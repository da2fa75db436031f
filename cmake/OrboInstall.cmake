# Installs the libraries, every public header under include/orbo/<folder>/, the umbrella header,
# the CMake package OrboSupport and a pkg-config file.
include(CMakePackageConfigHelpers)

get_property(orbo_targets GLOBAL PROPERTY ORBO_INSTALL_TARGETS)
install(TARGETS ${orbo_targets} EXPORT OrboSupportTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS orbo RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

foreach(folder base plst support krcache lua transform net dyd transaction reflection luaconnect app)
  if(EXISTS ${PROJECT_SOURCE_DIR}/${folder})
    install(DIRECTORY ${folder} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orbo
      FILES_MATCHING PATTERN "*.h")
  endif()
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/orbo/Support.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/orbo)

install(EXPORT OrboSupportTargets NAMESPACE Orbo::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/OrboSupport)
configure_package_config_file(cmake/OrboSupportConfig.cmake.in
  ${PROJECT_BINARY_DIR}/OrboSupportConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/OrboSupport)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/OrboSupportConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/OrboSupportConfig.cmake
              ${PROJECT_BINARY_DIR}/OrboSupportConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/OrboSupport)

configure_file(cmake/orbo-support.pc.in ${PROJECT_BINARY_DIR}/orbo-support.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/orbo-support.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
