# Run by cpack on the laid out station. A zip carries it as it is. What installs and removes must not own the
# workshop's configuration: it carries it under another name and lays it down once, where there is none.
if(NOT CPACK_GENERATOR STREQUAL "ZIP")
  file(GLOB_RECURSE configurazione ${CPACK_TEMPORARY_DIRECTORY}/*/lumira.ini ${CPACK_TEMPORARY_DIRECTORY}/lumira.ini)
  list(FILTER configurazione EXCLUDE REGEX "/impianto/")
  list(GET configurazione 0 file)
  get_filename_component(cartella ${file} DIRECTORY)
  file(MAKE_DIRECTORY ${cartella}/impianto)
  file(RENAME ${file} ${cartella}/impianto/lumira.ini)
endif()

if(CPACK_GENERATOR STREQUAL "DEB")
  set(sorgente ${CMAKE_CURRENT_LIST_DIR}/..)
  file(COPY ${CMAKE_CURRENT_LIST_DIR}/debian/lumira.desktop
       DESTINATION ${CPACK_TEMPORARY_DIRECTORY}/usr/share/applications)
  file(COPY ${sorgente}/dati/sorgenti/lumira.svg
       DESTINATION ${CPACK_TEMPORARY_DIRECTORY}/usr/share/icons/hicolor/scalable/apps)
  # The manual is the station's, which opens it: where documents are looked for it has its name alone.
  if(EXISTS ${CPACK_TEMPORARY_DIRECTORY}/opt/lumira/manuale.html)
    file(COPY ${CMAKE_CURRENT_LIST_DIR}/debian/lumira-manuale.desktop
         DESTINATION ${CPACK_TEMPORARY_DIRECTORY}/usr/share/applications)
    file(MAKE_DIRECTORY ${CPACK_TEMPORARY_DIRECTORY}/usr/share/doc/lumira)
    foreach(nome manuale.html manuale.pdf)
      file(CREATE_LINK /opt/lumira/${nome} ${CPACK_TEMPORARY_DIRECTORY}/usr/share/doc/lumira/${nome} SYMBOLIC)
    endforeach()
  endif()
  # The man pages, packed as Debian has them, and each program by its name wherever somebody stands.
  file(GLOB pagine ${sorgente}/docs/man/*.1)
  set(man ${CPACK_TEMPORARY_DIRECTORY}/usr/share/man/man1)
  file(MAKE_DIRECTORY ${man} ${CPACK_TEMPORARY_DIRECTORY}/usr/bin)
  foreach(pagina ${pagine})
    get_filename_component(nome ${pagina} NAME_WE)
    execute_process(COMMAND gzip -9n INPUT_FILE ${pagina} OUTPUT_FILE ${man}/${nome}.1.gz COMMAND_ERROR_IS_FATAL ANY)
    file(GLOB programma RELATIVE ${CPACK_TEMPORARY_DIRECTORY} ${CPACK_TEMPORARY_DIRECTORY}/opt/lumira/*/${nome})
    file(CREATE_LINK /${programma} ${CPACK_TEMPORARY_DIRECTORY}/usr/bin/${nome} SYMBOLIC)
  endforeach()
endif()

# Signed last of all: a signature covers every byte. Programs are ours, libraries are others'.
file(GLOB_RECURSE programmi ${CPACK_TEMPORARY_DIRECTORY}/*.exe)
foreach(programma ${programmi})
  execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/windows/firma.sh ${programma} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
