# Functions that every folder's CMakeLists.txt uses, so that all targets are compiled alike.

option(QVN_WERROR "Treat warnings as errors" OFF)
option(QVN_PRECOMPILE "Read the headers that nearly every source includes once for all of them" OFF)

# Most of a small source's time goes into the standard library's headers. clang-tidy builds without this, so that each
# source still includes what it uses; so does a compiler cache, which does better alone.
set(QVN_COMMON_HEADERS
  <algorithm> <array> <chrono> <filesystem> <functional> <memory> <optional> <string> <string_view> <utility> <variant>
  <vector>
)

# qvn_precompile(target first headers...): `first` compiles the headers for all targets that name it, which have the same
# options.
function(qvn_precompile target first)
  if(NOT QVN_PRECOMPILE OR CMAKE_CXX_COMPILER_LAUNCHER)
    return()
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # Its false alarms about std::string stay hidden in system headers only while those are not precompiled.
    target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
  endif()
  if(target STREQUAL first)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  else()
    target_precompile_headers(${target} REUSE_FROM ${first})
  endif()
endfunction()

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
  qvn_precompile(qvn_${name} qvn_base ${QVN_COMMON_HEADERS})
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
