# Debian packages by CPack, for a build that packaging/debian/make has configured: under /usr, without tests.
option(VMG_DEBIAN "Install as Debian's packages want it, and configure CPack" OFF)
if(NOT VMG_DEBIAN)
  return()
endif()

# The library's package is named by what a later version of it may not replace.
set(VMG_SO_VERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(library libvmgridviews${VMG_SO_VERSION})
set(development libvmgridviews-dev)
set(designer vmgridviews-designer)
set(gridhost vmgridviews-gridhost)
set(VMG_MAINTAINER "vmGridViews contributors <vmgridviews@noreply.invalid>" CACHE STRING "Maintainer of the Debian packages")

set(release 1)
set(files ${CMAKE_BINARY_DIR}/debian)
string(TIMESTAMP VMG_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(packaging/debian/changelog.in ${files}/changelog.Debian @ONLY)
execute_process(COMMAND gzip -9nf ${files}/changelog.Debian COMMAND_ERROR_IS_FATAL ANY)
foreach(component library development designer gridhost)
  install(FILES ${files}/changelog.Debian.gz packaging/debian/copyright DESTINATION share/doc/${${component}}
    COMPONENT ${component})
endforeach()
install(CODE "execute_process(COMMAND gzip -9nf \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/share/man/man1/gridhost.1\")"
  COMPONENT gridhost)

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL library development designer gridhost)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_SOURCE_DIR}/build/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${release})
set(CPACK_DEBIAN_PACKAGE_SOURCE vmgridviews)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${VMG_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/lib)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(exactly "(= ${PROJECT_VERSION}-${release})")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "control with which users reshape a data grid
The users of a program sort and group the rows of its data grid, choose
columns, colour rows by rules, print, and export to a workbook, in English or
Greek, without any code in the program.

This package has the shared libraries: the control with a grid of its own,
and its dialogs for Qt.")
file(WRITE ${files}/triggers "activate-noawait ldconfig\n")
file(WRITE ${files}/shlibs "")
foreach(part Core Qt)  # CPack's own would come with scripts that call ldconfig
  file(APPEND ${files}/shlibs "libvmGridViews${part} ${VMG_SO_VERSION} ${library} (>= ${PROJECT_VERSION})\n")
endforeach()
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${files}/triggers ${files}/shlibs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${development})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${library} ${exactly}, qt6-base-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "control with which users reshape a data grid - development files
The users of a program sort and group the rows of its data grid, choose
columns, colour rows by rules, print, and export to a workbook.

This package has the headers, and the files by which CMake and pkg-config find
the libraries.")
set(CPACK_DEBIAN_DESIGNER_PACKAGE_NAME ${designer})
set(CPACK_DEBIAN_DESIGNER_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DESIGNER_PACKAGE_DEPENDS "${library} ${exactly}")
set(CPACK_DEBIAN_DESIGNER_PACKAGE_ENHANCES designer-qt6)
set(CPACK_COMPONENT_DESIGNER_DESCRIPTION "control with which users reshape a data grid - Qt Designer plugin
The users of a program sort and group the rows of its data grid, choose
columns, colour rows by rules, print, and export to a workbook.

This package brings the control into the widget box of Qt Designer.")
set(CPACK_DEBIAN_GRIDHOST_PACKAGE_NAME ${gridhost})
set(CPACK_DEBIAN_GRIDHOST_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_GRIDHOST_PACKAGE_RECOMMENDS xdg-utils)
set(CPACK_COMPONENT_GRIDHOST_DESCRIPTION "show a table in a grid that its user can reshape
gridhost opens a CSV file or a table of an SQLite database. Its user sorts and
groups the rows, chooses columns, colours rows by rules, prints, and exports to
a workbook, in English or Greek; scripts can do the same without a display.")
include(CPack)
