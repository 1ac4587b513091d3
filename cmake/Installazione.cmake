# cmake --install BUILD --prefix DIR lays out a working station in DIR. An existing lumira.ini is the
# workshop's own: it is never overwritten.
install(TARGETS lumira RUNTIME DESTINATION .)
install(FILES impianto/lingue.ini impianto/lingueMCTC.ini DESTINATION .)
install(CODE "
  set(destinazione \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/lumira.ini\")
  if(EXISTS \"\${destinazione}\")
    message(STATUS \"Kept: \${destinazione}\")
  else()
    file(INSTALL \"${PROJECT_SOURCE_DIR}/impianto/lumira.ini\" DESTINATION \"\${CMAKE_INSTALL_PREFIX}\")
  endif()
")
install(DIRECTORY dati/ DESTINATION dati
        FILES_MATCHING PATTERN "*.jpg" PATTERN "*.gif" PATTERN "*.png" PATTERN "*.acc"
        PATTERN "sorgenti" EXCLUDE)
