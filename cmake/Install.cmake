# `cmake --install`: the program and its tools in bin/; what comes with them
# under share/cadernia/ (the report files under Informes/ and Impresion/ as
# the installer lays them out, the icons of Ico/); the desktop entry, its
# icon and AppStream metainfo; a manual page per command.
include(GNUInstallDirs)

set(CADERNIA_APP_ID org.cadernia.Cadernia)

install(TARGETS cadernia cadernia-start cadernia-setup cadernia-sql cadernia-report
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

set(_data ${PROJECT_SOURCE_DIR}/data)
file(GLOB _reports ${_data}/reports/*.rpt)
list(REMOVE_ITEM _reports ${_data}/reports/FichaAlumno.rpt)
install(FILES ${_reports} DESTINATION ${CMAKE_INSTALL_DATADIR}/cadernia/Informes)
install(FILES ${_data}/reports/FichaAlumno.rpt DESTINATION ${CMAKE_INSTALL_DATADIR}/cadernia/Impresion)
install(FILES ${_data}/ico/Incidencias.gif ${_data}/ico/Alerta.gif DESTINATION ${CMAKE_INSTALL_DATADIR}/cadernia/Ico)

install(FILES ${_data}/desktop/${CADERNIA_APP_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${_data}/desktop/${CADERNIA_APP_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${_data}/desktop/cadernia.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

# Manual pages and the package's documents, compressed as Debian wants them
# (gzip -n: no name or time inside, so the same bytes on every build).
find_program(GZIP_EXECUTABLE gzip REQUIRED)
set(_gz_files)
function(cadernia_gzip source output)
  add_custom_command(OUTPUT ${output}
    COMMAND ${GZIP_EXECUTABLE} -9 -n -c ${source} > ${output}
    DEPENDS ${source} VERBATIM)
  set(_gz_files ${_gz_files} ${output} PARENT_SCOPE)
endfunction()

set(_man_pages cadernia cadernia-start cadernia-setup cadernia-sql cadernia-report)
foreach(page IN LISTS _man_pages)
  cadernia_gzip(${_data}/man/${page}.1 ${CMAKE_BINARY_DIR}/man/${page}.1.gz)
  install(FILES ${CMAKE_BINARY_DIR}/man/${page}.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
cadernia_gzip(${_data}/package/changelog ${CMAKE_BINARY_DIR}/doc/changelog.gz)
add_custom_target(cadernia_install_files ALL DEPENDS ${_gz_files})
install(FILES ${CMAKE_BINARY_DIR}/doc/changelog.gz ${_data}/package/copyright
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/cadernia)
