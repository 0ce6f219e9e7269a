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
set(CPACK_PACKAGE_VENDOR qvn)
set(CPACK_PACKAGE_CONTACT "qvn <qvn@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL lib windows dev program)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY =)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(library_package libqvn${QVN_SOVERSION})
set(CPACK_DEBIAN_LIB_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIB_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_LIB_DESCRIPTION "Function library of a point-of-sale and back-office system
 Recordsets over SQLite, MySQL, Firebird and ODBC, balances, orders, stock,
 texts and dialogs that the screens of a shop share.")
set(CPACK_DEBIAN_WINDOWS_PACKAGE_NAME libqvn-qt${QVN_SOVERSION})
set(CPACK_DEBIAN_WINDOWS_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_WINDOWS_DESCRIPTION "Windows of the point-of-sale function library
 The messages and questions of libqvn as Qt windows, and qvn-ventana, with
 which scripts ask in a window.")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libqvn-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${library_package} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEV_PACKAGE_SUGGESTS "${CPACK_DEBIAN_WINDOWS_PACKAGE_NAME}, cmake, pkg-config")
set(CPACK_COMPONENT_DEV_DESCRIPTION "Headers of the point-of-sale function library
 What a host is built with: headers, the CMake package qvn and files for
 pkg-config.")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME qvn)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SUGGESTS ${CPACK_DEBIAN_WINDOWS_PACKAGE_NAME})
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION "Point-of-sale functions at the terminal
 Balances, orders, stock, counters, queries and texts of a shop from the
 command line and from scripts. \"qvn demo\" shows it at work.")

include(CPack)
