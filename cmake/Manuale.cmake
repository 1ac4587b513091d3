# The manual travels with the station: one page with its pictures inside, the same for paper, and a page a chapter
# that the help key opens. A developer's build does without.
if(NOT LUMIRA_MANUALE)
  return()
endif()

foreach(programma cmark-gfm weasyprint)
  find_program(LUMIRA_PROGRAMMA_${programma} ${programma})
  if(NOT LUMIRA_PROGRAMMA_${programma})
    message(FATAL_ERROR "The manual needs ${programma}: apt-get install ${programma}, or -DLUMIRA_MANUALE=OFF")
  endif()
endforeach()

set(manuale ${PROJECT_BINARY_DIR}/manuale)
set(documenti ${PROJECT_SOURCE_DIR}/docs/manuale.md ${PROJECT_SOURCE_DIR}/docs/simulatore.md)
file(GLOB figure CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/figure/*.png)
add_custom_command(
  OUTPUT ${manuale}/manuale.pdf
  BYPRODUCTS ${manuale}/manuale.html
  COMMAND /usr/bin/python3 -B ${PROJECT_SOURCE_DIR}/attrezzi/manuale.py ${documenti} ${manuale}
  DEPENDS ${PROJECT_SOURCE_DIR}/attrezzi/manuale.py ${documenti} ${figure}
  COMMENT "manuale" VERBATIM)
add_custom_target(manuale ALL DEPENDS ${manuale}/manuale.pdf)
install(FILES ${manuale}/manuale.html ${manuale}/manuale.pdf DESTINATION .)
install(DIRECTORY ${manuale}/manuale DESTINATION .)
