# The installable package: KT7HRLib::kt7hrlib and, where it was built, the component "host" with
# KT7HRLib::kt7host, KT7HRLib::kt7data and the command kt7hr.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/KT7HRLib)
set(header_dir ${CMAKE_INSTALL_INCLUDEDIR}/kt7hrlib)

function(kt7_install_libraries export_set)
  install(TARGETS ${ARGN} EXPORT ${export_set}
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
          INCLUDES DESTINATION ${header_dir}
          FILE_SET HEADERS DESTINATION ${header_dir})
  install(EXPORT ${export_set} NAMESPACE KT7HRLib:: DESTINATION ${package_dir})
endfunction()

kt7_install_libraries(KT7HRLibTargets kt7hrlib)
if(KT7_BUILD_HOST)
  kt7_install_libraries(KT7HRLibHostTargets kt7data kt7host)
  install(TARGETS kt7hr)
endif()

configure_package_config_file(cmake/KT7HRLibConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/KT7HRLibConfig.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/KT7HRLibConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/KT7HRLibConfig.cmake
              ${PROJECT_BINARY_DIR}/KT7HRLibConfigVersion.cmake
        DESTINATION ${package_dir})
