# Shared libraries made of the modules' own objects, so that nothing is compiled twice.

set(QVN_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/qvn)
set(exported_names ${CMAKE_CURRENT_SOURCE_DIR}/exported.map)

# While the first number is 0, the second one tells incompatible versions apart.
set(QVN_SOVERSION ${PROJECT_VERSION_MAJOR})
set(QVN_COMPATIBILITY SameMajorVersion)
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(QVN_SOVERSION 0.${PROJECT_VERSION_MINOR})
  set(QVN_COMPATIBILITY SameMinorVersion)
endif()

# The library of each module that qvn_library has gathered is kept in the global property QVN_LIBRARY_OF_<module>.
function(qvn_link_like_module library module modules)
  get_target_property(dependencies qvn_${module} LINK_LIBRARIES)
  get_target_property(shown qvn_${module} INTERFACE_LINK_LIBRARIES)
  foreach(dependency IN LISTS dependencies)
    if(NOT dependency MATCHES "^qvn::(.+)")
      if(dependency)
        target_link_libraries(${library} PRIVATE ${dependency})
      endif()
    elseif(NOT CMAKE_MATCH_1 IN_LIST modules)
      get_property(other GLOBAL PROPERTY QVN_LIBRARY_OF_${CMAKE_MATCH_1})
      if(NOT other)
        message(FATAL_ERROR "${module} needs ${dependency}, which no library before it holds")
      endif()
      if(dependency IN_LIST shown)
        target_link_libraries(${library} PUBLIC ${other})
      else()
        target_link_libraries(${library} PRIVATE ${other})
      endif()
    endif()
  endforeach()
endfunction()

# The file by which pkg-config finds a component, once all is known of its library.
function(qvn_pkg_config component)
  set(library qvn_so_${component})
  get_target_property(file ${library} OUTPUT_NAME)
  get_target_property(needed ${library} INTERFACE_LINK_LIBRARIES)
  set(requires "")
  foreach(other IN LISTS needed)
    if(TARGET ${other})
      get_target_property(name ${other} OUTPUT_NAME)
      list(APPEND requires ${name})
    endif()
  endforeach()
  list(REMOVE_DUPLICATES requires)
  list(JOIN requires ", " requires)
  get_target_property(link_options ${library} INTERFACE_LINK_OPTIONS)
  set(flags "")
  if(link_options)
    string(REPLACE "LINKER:" "-Wl," flags "${link_options} ")
  endif()
  file(RELATIVE_PATH to_prefix /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
  string(REGEX REPLACE "/$" "" to_prefix ${to_prefix})
  configure_file(qvn.pc.in ${file}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${file}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
endfunction()

# qvn_library(sqlite driver_sqlite ...): the shared library libqvn-sqlite of these modules, component "sqlite" of the
# CMake package, where it is the target qvn::driver_sqlite, named after the first module. That of lumlibreria is libqvn.
function(qvn_library component)
  set(library qvn_so_${component})
  set(file qvn-${component})
  if(component STREQUAL lumlibreria)
    set(file qvn)
  endif()
  list(GET ARGN 0 exported_as)
  set(package lib)
  if(component STREQUAL qt)
    set(package windows)
  endif()

  add_library(${library} SHARED)
  set_target_properties(${library} PROPERTIES
    OUTPUT_NAME ${file} EXPORT_NAME ${exported_as} VERSION ${PROJECT_VERSION} SOVERSION ${QVN_SOVERSION}
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib INSTALL_RPATH "$ORIGIN" LINK_DEPENDS ${exported_names}
    LINKER_LANGUAGE CXX
  )
  target_compile_features(${library} PUBLIC cxx_std_20)
  target_include_directories(${library} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_options(${library} PRIVATE
    LINKER:--version-script=${exported_names} LINKER:-z,defs LINKER:--as-needed LINKER:-Bsymbolic-functions)
  foreach(module IN LISTS ARGN)
    target_sources(${library} PRIVATE $<TARGET_OBJECTS:qvn_${module}>)
    qvn_link_like_module(${library} ${module} "${ARGN}")
    set_property(GLOBAL PROPERTY QVN_LIBRARY_OF_${module} ${library})
    get_target_property(headers qvn_${module} QVN_PUBLIC_HEADERS)
    if(headers)
      target_sources(${library} INTERFACE FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${headers})
    endif()
  endforeach()

  install(TARGETS ${library} EXPORT qvn-${component}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${package} NAMELINK_COMPONENT dev
    FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)
  install(EXPORT qvn-${component} FILE qvn-${component}-targets.cmake NAMESPACE qvn::
    DESTINATION ${QVN_CMAKE_DIR} COMPONENT dev)
  set_property(GLOBAL APPEND PROPERTY QVN_COMPONENTS ${component})
endfunction()
