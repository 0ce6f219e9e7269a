# Functions that every folder's CMakeLists.txt uses, so that all targets are compiled alike.

option(QVN_WERROR "Treat warnings as errors" OFF)

# The language level and the warnings of this project's own targets.
function(qvn_compile_options target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # With optimisation it takes every literal put in front of a string for an overlapping copy (GCC bug 105651).
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(QVN_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

# A module of the library: qvn_module(base utf8.cpp ...) makes the static library qvn_base, alias qvn::base.
# Sources stand beside the CMakeLists.txt that calls it; includes are written from the repository root.
function(qvn_module name)
  add_library(qvn_${name} STATIC ${ARGN})
  add_library(qvn::${name} ALIAS qvn_${name})
  target_include_directories(qvn_${name} PUBLIC ${PROJECT_SOURCE_DIR})
  qvn_compile_options(qvn_${name})
endfunction()

# What hosts may include of a module: qvn_public_headers(base clock.h ...), called beside its qvn_module. They are
# installed. The shared library that holds the module shows the functions of the sources that are named after them
# (variant.cpp, variant_operators.cpp, clock_posix.cpp) and keeps all others to itself.
function(qvn_public_headers name)
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE headers)
  set_target_properties(qvn_${name} PROPERTIES QVN_PUBLIC_HEADERS "${headers}")
  list(TRANSFORM ARGN REPLACE "\\.h$" "" OUTPUT_VARIABLE stems)
  list(JOIN stems "|" stems)
  get_target_property(sources qvn_${name} SOURCES)
  foreach(source IN LISTS sources)
    string(REPLACE .cpp .h header ${source})
    if(NOT source MATCHES "^(${stems})(_.*)?\\.cpp$" OR EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${header}
       AND NOT header IN_LIST ARGN)
      set_source_files_properties(${source} PROPERTIES COMPILE_OPTIONS -fvisibility=hidden)
    endif()
  endforeach()
endfunction()
