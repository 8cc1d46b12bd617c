# The tree that the Windows packages hold: x64 and x86 with the libraries and gridhost of a width, and what both share.
# packaging/windows/make puts it together from the builds of both widths.
if(NOT WIN32 OR NOT TARGET help_file)
  return()
endif()

set(folder x64)
if(VMG_BITS EQUAL 32)
  set(folder x86)
endif()
install(TARGETS vmg_control_server vmg_string_server vmg_workbook_server gridhost RUNTIME DESTINATION ${folder} COMPONENT windows)
install(FILES ${CMAKE_BINARY_DIR}/help/VMgridViews.chm DESTINATION help COMPONENT windows)
install(FILES ${CMAKE_SOURCE_DIR}/data/birdstrikes.csv DESTINATION data COMPONENT windows)
install(DIRECTORY examples/vbscript examples/vb6 examples/vba examples/csharp DESTINATION examples COMPONENT windows)
install(FILES examples/register.cmd examples/without_excel.cmd DESTINATION examples COMPONENT windows)
install(FILES LICENSE DESTINATION . RENAME license.txt COMPONENT windows)
configure_file(packaging/windows/readme.txt.in readme.txt @ONLY NEWLINE_STYLE WIN32)
install(FILES ${CMAKE_BINARY_DIR}/readme.txt DESTINATION . COMPONENT windows)
