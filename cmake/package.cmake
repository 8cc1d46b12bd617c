# The product as other programs build on it (Linux): two shared libraries put together from the house's small ones, their
# public headers, and what find_package(vmGridViews) and pkg-config read. gridhost installs itself.
#
# Components of the installation: library, development, designer, gridhost.
if(WIN32)  # its product is the servers' libraries
  return()
endif()
include(CMakePackageConfigHelpers)

# vmg_parts(HOUSE OUTSIDE LIBRARY ...): the static libraries that these consist of, and what they use from outside.
function(vmg_parts house outside)
  set(open ${ARGN})
  set(ours)
  set(others)
  while(open)
    list(POP_FRONT open library)
    if(library IN_LIST ours OR library IN_LIST others)
      continue()
    endif()
    if(NOT library MATCHES "^vmg_")
      list(APPEND others ${library})
      continue()
    endif()
    get_target_property(type ${library} TYPE)
    if(type STREQUAL "STATIC_LIBRARY")
      list(APPEND ours ${library})
      get_target_property(links ${library} LINK_LIBRARIES)
    else()
      get_target_property(links ${library} INTERFACE_LINK_LIBRARIES)
    endif()
    if(links)
      list(APPEND open ${links})
    endif()
  endwhile()
  set(${house} ${ours} PARENT_SCOPE)
  set(${outside} ${others} PARENT_SCOPE)
endfunction()

# vmg_shared(PART FROM LIBRARY ... [ON TARGET ...]): the shared library vmGridViewsPART. What the libraries under ON hold
# is taken from there; its users get them too.
function(vmg_shared part)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "FROM;ON")
  set(name vmGridViews${part})
  vmg_parts(house outside ${arg_FROM})
  foreach(below ${arg_ON})
    if(below MATCHES "^vmGridViews")
      get_target_property(there ${below} VMG_PARTS)
      list(REMOVE_ITEM house ${there})
    endif()
  endforeach()
  list(REMOVE_ITEM outside ${arg_ON})

  list(TRANSFORM house REPLACE ".+" "$<TARGET_OBJECTS:\\0>" OUTPUT_VARIABLE objects)
  add_library(${name} SHARED ${objects})
  add_library(vmGridViews::${part} ALIAS ${name})
  target_link_libraries(${name} PUBLIC ${arg_ON} PRIVATE ${outside} $<BUILD_INTERFACE:vmg_options>)
  target_compile_features(${name} INTERFACE cxx_std_20)
  target_include_directories(${name} INTERFACE $<BUILD_INTERFACE:${CMAKE_BINARY_DIR}/include>
                                               $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  # Until version 1 every minor version may break what was built on the one before.
  set_target_properties(${name} PROPERTIES
    EXPORT_NAME ${part}
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib
    LINKER_LANGUAGE CXX
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
    INSTALL_RPATH $ORIGIN
    VMG_PARTS "${house}")
  add_dependencies(${name} public_headers)

  install(TARGETS ${name} EXPORT ${name}
    LIBRARY COMPONENT library NAMELINK_COMPONENT development)
  install(EXPORT ${name} NAMESPACE vmGridViews:: FILE ${name}Targets.cmake DESTINATION ${VMG_CMAKE_DIR} COMPONENT development)
  configure_file(cmake/package/${name}.pc.in ${name}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endfunction()

# The headers by which programs reach the product; what these include comes with them.
set(headers
  GridEngine=adapters/grid/grid_object.h+adapters/grid/row_source.h
  GridView=frontends/qt/grid_view.h
  GridViewEditor=frontends/qt/grid_view.h+frontends/qt/grid_view_editor.h
  Headless=frontends/headless/headless_desktop.h+frontends/headless/headless_printer.h
  ItemModelSource=frontends/qt/item_model_source.h
  Objects=support/automation/class_table.h+support/automation/convert.h+support/fonts/standard_font.h
  Pages=support/pages/page_objects.h+support/pages/print_port.h
  Player=hosts/player/play.h
  Workbook=adapters/workbook/application.h
  vmgrEdit=control/vmgr_edit.h)
set(script ${CMAKE_CURRENT_LIST_DIR}/package/public_headers.cmake)
set(stamp ${CMAKE_BINARY_DIR}/include/vmGridViews.stamp)
add_custom_command(
  OUTPUT ${stamp}
  COMMAND ${CMAKE_COMMAND} -D SOURCE=${CMAKE_SOURCE_DIR} -D TARGET=${CMAKE_BINARY_DIR}/include/vmGridViews
          -D "HEADERS=${headers}" -D STAMP=${stamp} -P ${script}
  DEPENDS ${script}
  DEPFILE ${stamp}.d
  COMMENT "Collecting the public headers" VERBATIM)
add_custom_target(public_headers ALL DEPENDS ${stamp})
install(DIRECTORY ${CMAKE_BINARY_DIR}/include/vmGridViews DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

set(VMG_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/vmGridViews)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig OUTPUT_VARIABLE VMG_PREFIX_FROM_PKGCONFIG)
vmg_shared(Core FROM vmg_control vmg_grid_adapter vmg_headless_printer vmg_player vmg_workbook)
vmg_shared(Qt FROM vmg_qt ON vmGridViewsCore Qt6::Widgets)

configure_package_config_file(cmake/package/vmGridViewsConfig.cmake.in vmGridViewsConfig.cmake
  INSTALL_DESTINATION ${VMG_CMAKE_DIR} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(vmGridViewsConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vmGridViewsConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/vmGridViewsConfigVersion.cmake
  DESTINATION ${VMG_CMAKE_DIR} COMPONENT development)
