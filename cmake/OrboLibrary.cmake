# orbo_add_library(NAME TARGET EXPORT_NAME SOURCES... [DEPENDS ...])
# Declares one of the project's libraries: includes resolve from the repository root while
# building and from include/orbo once installed, and the public headers of each folder are
# remembered so that the install step can copy them under include/orbo/<folder>/.
function(orbo_add_library target)
  cmake_parse_arguments(ARG "" "EXPORT_NAME" "SOURCES;PUBLIC_DEPS;PRIVATE_DEPS" ${ARGN})
  add_library(${target} ${ARG_SOURCES})
  add_library(Orbo::${ARG_EXPORT_NAME} ALIAS ${target})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${ARG_EXPORT_NAME}
                                             VERSION ${PROJECT_VERSION} SOVERSION 0)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/orbo>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_libraries(${target} PUBLIC ${ARG_PUBLIC_DEPS} PRIVATE ${ARG_PRIVATE_DEPS})
  # A shared library's own calls to its exported functions may be inlined and
  # bound directly: nothing is meant to interpose them, and without this GCC
  # routes every such call through the PLT and inlines none of them.
  if(BUILD_SHARED_LIBS AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE -fno-semantic-interposition)
  endif()
  set_property(GLOBAL APPEND PROPERTY ORBO_INSTALL_TARGETS ${target})
endfunction()
