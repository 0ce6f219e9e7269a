# The programs over the shared libraries, with what people expect beside a program.

# Modules that only the programs hold.
set(qvn_program_modules cli automation automation_json automation_rapidjson)

function(qvn_installed_program name main component)
  add_executable(${name}-installed ${main})
  qvn_compile_options(${name}-installed)
  target_include_directories(${name}-installed PRIVATE ${PROJECT_SOURCE_DIR})
  foreach(module IN LISTS qvn_program_modules)
    target_sources(${name}-installed PRIVATE $<TARGET_OBJECTS:qvn_${module}>)
    qvn_link_like_module(${name}-installed ${module} "${qvn_program_modules}")
  endforeach()
  target_link_libraries(${name}-installed PRIVATE ${ARGN})
  set_target_properties(${name}-installed PROPERTIES
    OUTPUT_NAME ${name} RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/bin
    INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
  install(TARGETS ${name}-installed RUNTIME COMPONENT ${component})
endfunction()

qvn_installed_program(qvn ${PROJECT_SOURCE_DIR}/apps/qvn/main.cpp program)
if(TARGET qvn_so_qt)
  qvn_installed_program(qvn-ventana ${PROJECT_SOURCE_DIR}/apps/qvn_ventana/main.cpp windows qvn_so_qt Qt6::Widgets)
endif()

# The program itself writes both, from the table of its commands.
add_custom_command(
  OUTPUT qvn.1.gz qvn.bash
  COMMAND qvn --manual > qvn.1
  COMMAND gzip -9nf qvn.1
  COMMAND qvn --completado > qvn.bash
  DEPENDS qvn
  VERBATIM
)
add_custom_target(qvn_program_texts ALL DEPENDS qvn.1.gz qvn.bash)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qvn.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qvn.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
  RENAME qvn COMPONENT program)
