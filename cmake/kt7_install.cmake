# The installable package, by components:
#   kt7hrlib                 the library: needs nothing but a C++20 compiler
#   roles                    the roles of a host over one small interface: nothing more either
#   host                     the reference host with SQLite
#   mysql, postgresql, odbc  its other drivers
#   payroll                  the pay run
# Static libraries always, shared ones beside them where BUILD_SHARED_LIBS is on; and the command.
# What is installed falls into four parts, `cmake --install BUILD --component PART`: libraries (the
# shared ones), drivers (those that need a server's client library), development, command.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/KT7HRLib)
set(kt7_server_drivers mysql postgresql odbc)

# kt7_install_component(COMPONENT LIBRARY SUMMARY NEEDS...): NEEDS are the libraries of other
# components that it stands on.
function(kt7_install_component component library summary)
  set(public_name kt7${component})
  if(component STREQUAL kt7hrlib)
    set(public_name kt7hrlib)
  endif()
  set_target_properties(${library} PROPERTIES EXPORT_NAME ${public_name})
  install(TARGETS ${library} EXPORT KT7HRLib-${component}-static
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
          FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
  install(EXPORT KT7HRLib-${component}-static NAMESPACE KT7HRLib:: DESTINATION ${package_dir}
          COMPONENT development)
  if(BUILD_SHARED_LIBS)
    set(part libraries)
    if(component IN_LIST kt7_server_drivers)
      set(part drivers)
    endif()
    kt7_add_shared(${library} ${ARGN})
    install(TARGETS ${library}_shared EXPORT KT7HRLib-${component}-shared
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${part}
            NAMELINK_COMPONENT development
            FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
    install(EXPORT KT7HRLib-${component}-shared NAMESPACE KT7HRLib:: DESTINATION ${package_dir}
            COMPONENT development)
  endif()
  kt7_write_pkgconfig(${library} "${summary}" ${ARGN})
endfunction()

# The shared form of a static library: all of it, with what is not marked KT7_API hidden. The shared
# libraries that it stands on come first and count although nothing has asked for them yet, which
# --as-needed, a compiler's default on some systems, would prevent: whatever they show is theirs, and
# only small functions that they hide are taken from the static ones. A second copy of the list of
# drivers would be one that nobody reads.
function(kt7_add_shared library)
  set(needed ${ARGN})
  foreach(other IN LISTS ARGN)
    get_target_property(below ${other}_shared KT7_STANDS_ON)
    list(APPEND needed ${below})
  endforeach()
  list(TRANSFORM needed APPEND _shared OUTPUT_VARIABLE needed_shared)
  set(source ${PROJECT_BINARY_DIR}/${library}_shared.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "")
  add_library(${library}_shared SHARED ${source})
  target_link_options(${library}_shared PRIVATE LINKER:--no-as-needed)
  target_link_libraries(${library}_shared PUBLIC ${needed_shared}
                        PRIVATE -Wl,--as-needed $<LINK_LIBRARY:WHOLE_ARCHIVE,${library}>)
  set_target_properties(${library}_shared PROPERTIES KT7_STANDS_ON "${needed}")
  get_target_property(headers ${library} HEADER_SET)
  if(headers)
    target_sources(${library}_shared PUBLIC FILE_SET HEADERS
                   BASE_DIRS ${PROJECT_SOURCE_DIR}/include FILES ${headers})
  endif()
  target_compile_features(${library}_shared PUBLIC cxx_std_20)
  get_target_property(name ${library} EXPORT_NAME)
  set_target_properties(${library}_shared PROPERTIES OUTPUT_NAME ${library} EXPORT_NAME ${name}
                        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
endfunction()

# kt7NAME.pc; what a library needs of others is asked of it, so that it stands in one place. The
# libraries share what is not public, so they are of one version.
function(kt7_write_pkgconfig library summary)
  set(name ${library})
  file(RELATIVE_PATH up /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
  string(REGEX REPLACE "/$" "" up "${up}")
  list(TRANSFORM ARGN APPEND " = ${PROJECT_VERSION}" OUTPUT_VARIABLE requires)
  list(JOIN requires ", " requires)
  set(private)
  get_property(links TARGET ${library} PROPERTY LINK_LIBRARIES)
  foreach(link IN LISTS links)
    if(link STREQUAL SQLite::SQLite3)
      string(APPEND private " -lsqlite3")
    elseif(link MATCHES "^PkgConfig::(.*)")
      foreach(flag IN LISTS ${CMAKE_MATCH_1}_LIBRARIES)
        string(APPEND private " -l${flag}")
      endforeach()
    elseif(NOT TARGET ${link})
      string(APPEND private " -l${link}")
    endif()
  endforeach()
  configure_file(${PROJECT_SOURCE_DIR}/cmake/kt7.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
          COMPONENT development)
endfunction()

kt7_install_component(kt7hrlib kt7hrlib "Payroll and personnel rules for Thailand")
kt7_install_component(roles kt7roles "The roles of a host over one small interface" kt7hrlib)
if(KT7_BUILD_HOST)
  kt7_install_component(host kt7host "The reference host with SQLite" kt7roles)
  foreach(driver IN LISTS kt7_server_drivers)
    if(TARGET kt7${driver})
      kt7_install_component(${driver} kt7${driver} "A driver of the reference host" kt7host)
    endif()
  endforeach()
  kt7_install_component(payroll kt7payroll "The pay run of a month" kt7hrlib)
  install(TARGETS kt7hr COMPONENT command)
endif()

configure_package_config_file(cmake/KT7HRLibConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/KT7HRLibConfig.cmake
                              INSTALL_DESTINATION ${package_dir}
                              PATH_VARS CMAKE_INSTALL_LIBDIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/KT7HRLibConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/KT7HRLibConfig.cmake
              ${PROJECT_BINARY_DIR}/KT7HRLibConfigVersion.cmake
        DESTINATION ${package_dir} COMPONENT development)
