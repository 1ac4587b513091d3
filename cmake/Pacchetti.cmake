# What a workshop is given: on Windows a zip with the whole station and an installer, on Debian a package.
# cpack --config BUILD/CPackConfig.cmake makes them in BUILD/pacchetti.
set(CPACK_PACKAGE_NAME lumira)
set(CPACK_PACKAGE_VENDOR lumira)
set(CPACK_PACKAGE_CONTACT "lumira <lumira@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/pacchetti)
set(CPACK_MONOLITHIC_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/consegna.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/impacchettata.cmake)

if(WIN32)
  set(CPACK_GENERATOR ZIP NSIS)
  set(CPACK_PACKAGE_FILE_NAME lumira-${PROJECT_VERSION}-windows)
  set(CPACK_PACKAGE_INSTALL_DIRECTORY lumira)
  # Not below the system's program folder: the station writes its configuration beside itself.
  set(CPACK_NSIS_INSTALL_ROOT C:)
  set(CPACK_NSIS_DISPLAY_NAME lumira)
  set(CPACK_NSIS_PACKAGE_NAME lumira)
  set(CPACK_NSIS_MUI_ICON ${PROJECT_SOURCE_DIR}/dati/lumira.ico)
  set(CPACK_NSIS_MUI_UNIICON ${PROJECT_SOURCE_DIR}/dati/lumira.ico)
  set(CPACK_NSIS_INSTALLED_ICON_NAME lumira.exe)
  set(CPACK_NSIS_EXECUTABLES_DIRECTORY .)
  set(CPACK_PACKAGE_EXECUTABLES lumira lumira)
  if(LUMIRA_MANUALE)
    set(CPACK_NSIS_MENU_LINKS manuale.html "Manuale di lumira")
  endif()
  set(CPACK_NSIS_MANIFEST_DPI_AWARE ON)
  # Nobody has written a licence that could be shown.
  set(CPACK_NSIS_IGNORE_LICENSE_PAGE ON)
  # A 64-bit installer: it runs wherever the program itself does.
  set(CPACK_NSIS_DEFINES "Target amd64-unicode
  !include /CHARSET=UTF8 \"${PROJECT_SOURCE_DIR}/packaging/windows/stazione.nsh\"")
  set(CPACK_NSIS_EXTRA_PREINSTALL_COMMANDS "Call Annuncia_Diritti
  Call Esigi_StazioneChiusa
  Call Copia_Configurazione")
  # The uninstaller takes away what the installer brought: the configuration, made here, stays.
  set(CPACK_NSIS_EXTRA_INSTALL_COMMANDS [[
    IfFileExists "$INSTDIR\lumira.ini" +2
      CopyFiles /SILENT "$INSTDIR\impianto\lumira.ini" "$INSTDIR\lumira.ini"
    Call Concedi_Diritti]])
  set(CPACK_NSIS_EXTRA_UNINSTALL_COMMANDS "Call un.Annuncia_CosaResta
  Call un.Esigi_StazioneChiusa")
  # The installer is signed when it is made, the uninstaller before it goes into it.
  set(firma "'\"${PROJECT_SOURCE_DIR}/packaging/windows/firma.sh\" \"%1\"' = 0")
  string(APPEND CPACK_NSIS_DEFINES "\n  !finalize ${firma}\n  !uninstfinalize ${firma}")
else()
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGING_INSTALL_PREFIX /opt/lumira)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION misc)
  set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"The operator picks a vehicle, the program waits on the instrument over a
serial line, judges the intensity of the four beams, shows the outcome, prints
the report and leaves a result file for the network software of the workshop.
With its command-line tools and a simulated instrument.")
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-liberation)
  # xdg-utils: the help key and the manual's entry in the menu.
  set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "cups, xdg-utils")
  set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/postinst
      ${PROJECT_SOURCE_DIR}/packaging/debian/postrm)
  set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
endif()
include(CPack)
