# Run by cpack when the packages of a generator are made.
if(CPACK_GENERATOR STREQUAL "ZIP")
  foreach(pacchetto ${CPACK_PACKAGE_FILES})
    execute_process(COMMAND python3 -B ${CMAKE_CURRENT_LIST_DIR}/ordina_zip.py ${pacchetto} COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
endif()
