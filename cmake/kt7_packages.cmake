# Debian packages by CPack, made by scripts/package-debian:
#   libkt7hr0           the shared libraries, with SQLite
#   libkt7hr-drivers0   those of the servers' drivers, which bring the client libraries
#   libkt7hr-dev        headers, static libraries, what CMake and pkg-config read
#   kt7hr               the command
set(soversion ${PROJECT_VERSION_MAJOR})
set(CPACK_PACKAGE_VENDOR "KT7HRLib maintainers")
set(CPACK_PACKAGE_CONTACT "KT7HRLib maintainers <maintainers@kt7hrlib.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_COMPONENTS_ALL)

# kt7_package(PART NAME SECTION SUMMARY TEXT DEPENDS): TEXT has lines of a terminal's width.
function(kt7_package part name section summary text depends)
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} RENAME copyright
          COMPONENT ${part})
  string(TOUPPER ${part} PART)
  set(CPACK_DEBIAN_${PART}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${PART}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${PART}_PACKAGE_DEPENDS "${depends}")
  set(CPACK_DEBIAN_${PART}_DESCRIPTION "${summary}\n${text}")
  list(APPEND CPACK_COMPONENTS_ALL ${part})
  return(PROPAGATE CPACK_DEBIAN_${PART}_PACKAGE_NAME CPACK_DEBIAN_${PART}_PACKAGE_SECTION
                   CPACK_DEBIAN_${PART}_PACKAGE_DEPENDS CPACK_DEBIAN_${PART}_DESCRIPTION
                   CPACK_COMPONENTS_ALL)
endfunction()

set(same_libraries "libkt7hr${soversion} (= ${PROJECT_VERSION})")
kt7_package(libraries libkt7hr${soversion} libs "payroll and personnel rules for Thailand"
            [[Rates of pay, withholding tax, social security, provident fund, pay
periods and balances as operations that a host calls in its own process.
With ready-made collaborators for a host with its own database access, a
reference host on SQLite, and the pay run of a month.]]
            "")
kt7_package(drivers libkt7hr-drivers${soversion} libs
            "payroll rules for Thailand, drivers of database servers"
            "The reference host's drivers for MariaDB and MySQL, PostgreSQL and ODBC."
            "${same_libraries}")
kt7_package(development libkt7hr-dev libdevel
            "payroll and personnel rules for Thailand, to build hosts"
            "Headers below kt7/, static libraries, and what CMake and pkg-config read."
            "${same_libraries}")
kt7_package(command kt7hr misc "payroll for Thailand on the command line"
            [[Makes and fills a company's database, pays a month and prints the
register, and runs single operations by name or as JSON-RPC.]]
            "")
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_SUGGESTS "libkt7hr-drivers${soversion}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS
    "libkt7hr-drivers${soversion}, pkgconf, libsqlite3-dev, libgcrypt20-dev, libcsv-dev, libutf8proc-dev, libmariadb-dev, libpq-dev, libssl-dev, unixodbc-dev"
)
include(CPack)
