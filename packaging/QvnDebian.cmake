# Debian packages, made by "cpack" in the build folder or by scripts/package: the library, the windows, what building
# against them takes, and the program. What each needs of Debian is found from the programs' own list of libraries.

# The system finds its libraries without being told where.
install(CODE [[
  if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    file(GLOB_RECURSE programs "$ENV{DESTDIR}/usr/bin/qvn*" "$ENV{DESTDIR}/usr/lib*/libqvn*.so.*")
    foreach(program IN LISTS programs)
      file(RPATH_REMOVE FILE "${program}")
    endforeach()
  endif()
]] ALL_COMPONENTS)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qvn)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "function library of a point-of-sale and back-office system")
set(CPACK_PACKAGE_VENDOR qvn)
set(CPACK_PACKAGE_CONTACT "qvn <qvn@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL lib dev)
if(QVN_BUILD_APPS)
  list(APPEND CPACK_COMPONENTS_ALL program)
endif()
if(TARGET qvn_so_qt)
  list(APPEND CPACK_COMPONENTS_ALL windows)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY =)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(library_package libqvn${QVN_SOVERSION})
set(windows_package libqvn-qt${QVN_SOVERSION})
set(same_version "(= ${PROJECT_VERSION})")

set(CPACK_DEBIAN_LIB_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIB_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIB_DESCRIPTION
  "Recordsets over SQLite, MySQL, Firebird and ODBC, balances, orders, stock,\ntexts and dialogs that the screens of a shop share.")

set(CPACK_DEBIAN_WINDOWS_PACKAGE_NAME ${windows_package})
set(CPACK_DEBIAN_WINDOWS_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_WINDOWS_PACKAGE_DEPENDS "${library_package} ${same_version}")
set(CPACK_DEBIAN_WINDOWS_DESCRIPTION
  "The messages and questions of libqvn as Qt windows, and qvn-ventana, with\nwhich scripts ask in a window.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libqvn-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${library_package} ${same_version}")
set(CPACK_DEBIAN_DEV_PACKAGE_SUGGESTS "${windows_package}, cmake, pkg-config")
set(CPACK_DEBIAN_DEV_DESCRIPTION
  "What hosts are built with: headers, the CMake package qvn, files for\npkg-config, documents and an example.")

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME qvn)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "${library_package} ${same_version}")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SUGGESTS ${windows_package})
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION
  "The program: balances, orders, stock, counters, queries and texts of a shop\nfrom the command line and from scripts.")

include(CPack)
