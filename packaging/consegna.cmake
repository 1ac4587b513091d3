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
  # Of others' works the package carries none: the list says which ones it uses.
  set(documenti ${CPACK_TEMPORARY_DIRECTORY}/usr/share/doc/lumira)
  file(COPY ${sorgente}/licenze/elenco.json ${sorgente}/licenze/lumira.txt DESTINATION ${documenti}/licenze)
  file(COPY ${CMAKE_CURRENT_LIST_DIR}/debian/copyright DESTINATION ${documenti})
  configure_file(${CMAKE_CURRENT_LIST_DIR}/debian/lintian-overrides
                 ${CPACK_TEMPORARY_DIRECTORY}/usr/share/lintian/overrides/lumira COPYONLY)
  # Version and day of the packing, which is the day of SOURCE_DATE_EPOCH where that is set.
  string(TIMESTAMP giorno "%Y-%m-%d" UTC)
  string(TIMESTAMP data "%a, %d %b %Y %H:%M:%S +0000" UTC)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/debian/lumira.metainfo.xml.in
                 ${CPACK_TEMPORARY_DIRECTORY}/usr/share/metainfo/lumira.metainfo.xml @ONLY)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/debian/changelog.in ${documenti}/changelog @ONLY)
  configure_file(${sorgente}/CHANGELOG.md ${documenti}/NEWS COPYONLY)
  execute_process(COMMAND gzip -9n ${documenti}/changelog ${documenti}/NEWS COMMAND_ERROR_IS_FATAL ANY)
endif()

# Signed last of all: a signature covers every byte. Programs are ours, libraries are others'.
file(GLOB_RECURSE programmi ${CPACK_TEMPORARY_DIRECTORY}/*.exe)
foreach(programma ${programmi})
  execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/windows/firma.sh ${programma} COMMAND_ERROR_IS_FATAL ANY)
endforeach()

# The bill counts the bytes that are delivered: it comes after the signatures.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(distinta debian ${CPACK_PACKAGE_VERSION} ${CPACK_TEMPORARY_DIRECTORY} ${documenti}/distinta.spdx.json)
else()
  file(GLOB_RECURSE programma ${CPACK_TEMPORARY_DIRECTORY}/lumira.exe)
  get_filename_component(stazione ${programma} DIRECTORY)
  set(distinta windows ${CPACK_PACKAGE_VERSION} ${stazione} ${stazione}/licenze/distinta.spdx.json)
endif()
execute_process(COMMAND python3 -B ${CMAKE_CURRENT_LIST_DIR}/distinta.py ${distinta} COMMAND_ERROR_IS_FATAL ANY)
