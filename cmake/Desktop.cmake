# What desktops need to show scenes in their file managers: types of files, the
# program's window, small pictures, and the icon of all these.
set(archive_type application/vnd.vemo.scene+zip)
set(database_type application/vnd.vemo.scene-database)
set(desktop_types "${archive_type};${database_type};")

function(vemo_install_desktop_file file folder component)
  configure_file(${CMAKE_SOURCE_DIR}/share/${file}.in ${CMAKE_BINARY_DIR}/share/${file} @ONLY)
  install(FILES ${CMAKE_BINARY_DIR}/share/${file} DESTINATION ${CMAKE_INSTALL_DATADIR}/${folder} COMPONENT ${component})
endfunction()

vemo_install_desktop_file(vemoscene.xml mime/packages tools)
vemo_install_desktop_file(vemoscene.thumbnailer thumbnailers tools)
install(FILES ${CMAKE_SOURCE_DIR}/share/vemoscene.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT tools)
if(VEMO_BUILD_WINDOW)
  vemo_install_desktop_file(vemoscene.desktop applications window)
endif()
