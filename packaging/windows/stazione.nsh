; What the installer knows of a station beyond its files: where the last one was laid, that it may be open, and that
; whoever sits at it has to write in its folder. Included by the script that cpack makes.
!include LogicLib.nsh
!include FileFunc.nsh

; The station stays where it is: its folder is proposed again, and taken by a silent run, unless /D names another.
InstallDirRegKey HKLM "Software\lumira\lumira" ""

; A file that cannot be laid down ends the run: no station works with the parts of two versions.
AllowSkipFiles off

; Files get the date of their installation: with those of the build no two installers of one commit would be equal.
SetDateSave off

; Statuses of a run that ends otherwise than by the operator's choice (1) or a fault of the script (2).
!define STATO_IN_USO 3    ; the station is open: nothing was changed
!define STATO_DIRITTI 4   ; installed, but its users cannot write in its folder

!define UTENTI "*S-1-5-32-545" ; the group of this computer's users, whatever the language of the system calls it

Var Testo
Var Lingua

; Leaves in $Testo the text in the language of the run, English where it is none of the station's five. The lower ten
; bits tell the language, those above them whose it is.
!macro Testo italiano francese inglese spagnolo tedesco
  IntOp $Lingua $LANGUAGE & 0x3FF
  ${Select} $Lingua
    ${Case} 16 ; 0x10
      StrCpy $Testo `${italiano}`
    ${Case} 12 ; 0x0C
      StrCpy $Testo `${francese}`
    ${Case} 10 ; 0x0A
      StrCpy $Testo `${spagnolo}`
    ${Case} 7 ; 0x07
      StrCpy $Testo `${tedesco}`
    ${CaseElse}
      StrCpy $Testo `${inglese}`
  ${EndSelect}
!macroend

; Leaves in $R0 a program or library of the station that is in use, and nothing when none is: a file that runs
; cannot be opened for writing. The uninstaller may be the one that asks.
!macro Definisci_InUso UN
Function ${UN}In_Uso
  StrCpy $R0 ""
  FindFirst $R1 $R2 "$INSTDIR\*.*"
  ${DoWhile} $R2 != ""
    StrCpy $R3 $R2 "" -4
    ${If} $R3 == ".exe"
    ${OrIf} $R3 == ".dll"
      ClearErrors
      FileOpen $R4 "$INSTDIR\$R2" a
      ${If} ${Errors}
        ${If} $R2 != "Uninstall.exe"
          StrCpy $R0 $R2
        ${EndIf}
      ${Else}
        FileClose $R4
      ${EndIf}
    ${EndIf}
    FindNext $R1 $R2
  ${Loop}
  FindClose $R1
FunctionEnd

; Goes on when the station is closed, and sees to it that nobody opens it while its files change: its program is the
; first that goes. Asks as often as it takes; a silent run ends at once.
Function ${UN}Esigi_StazioneChiusa
  ${Do}
    Call ${UN}In_Uso
    ${If} $R0 == ""
      Delete "$INSTDIR\lumira.exe"
      ${IfNot} ${FileExists} "$INSTDIR\lumira.exe"
        Return
      ${EndIf}
      StrCpy $R0 "lumira.exe"
    ${EndIf}
    !insertmacro Testo \
      "La stazione in $INSTDIR è aperta ($R0 è in uso).$\r$\nChiuderla e riprovare." \
      "La station de $INSTDIR est ouverte ($R0 est utilisé).$\r$\nLa fermer et réessayer." \
      "The station in $INSTDIR is open ($R0 is in use).$\r$\nClose it and try again." \
      "La estación de $INSTDIR está abierta ($R0 está en uso).$\r$\nCiérrela y vuelva a intentarlo." \
      "Die Station in $INSTDIR ist geöffnet ($R0 wird benutzt).$\r$\nBitte schließen und erneut versuchen."
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$Testo" /SD IDCANCEL IDRETRY ancora
    SetErrorLevel ${STATO_IN_USO}
    Quit
    ancora:
  ${Loop}
FunctionEnd
!macroend
!insertmacro Definisci_InUso ""
!insertmacro Definisci_InUso "un."

; Leaves in $R0 whether the system keeps its users from writing in the folder of the station: it does below its own
; folders, and nowhere else by itself.
Function Cartella_DelSistema
  StrCpy $R0 ""
  !macro Confronta cartella
    StrLen $R1 "${cartella}"
    StrCpy $R2 $INSTDIR $R1
    ${If} $R2 == "${cartella}"
      StrCpy $R0 "1"
    ${EndIf}
  !macroend
  !insertmacro Confronta $PROGRAMFILES64
  !insertmacro Confronta $PROGRAMFILES32
  !insertmacro Confronta $WINDIR
FunctionEnd

; Says what will be done to the folder, before anything is. Whoever does not want it runs the installer again with
; another folder.
Function Annuncia_Diritti
  Call Cartella_DelSistema
  ${If} $R0 != ""
    !insertmacro Testo \
      "Gli utenti di questo computer non possono scrivere in $INSTDIR, dove la stazione tiene la propria \
configurazione.$\r$\nL'installazione dà loro il diritto di modificare questa cartella. Continuare?" \
      "Les utilisateurs de cet ordinateur ne peuvent pas écrire dans $INSTDIR, où la station garde sa \
configuration.$\r$\nL'installation leur donne le droit de modifier ce dossier. Continuer ?" \
      "The users of this computer cannot write in $INSTDIR, where the station keeps its \
configuration.$\r$\nThe installation gives them the right to modify this folder. Continue?" \
      "Los usuarios de este equipo no pueden escribir en $INSTDIR, donde la estación guarda su \
configuración.$\r$\nLa instalación les da el derecho de modificar esta carpeta. ¿Continuar?" \
      "Die Benutzer dieses Computers können nicht in $INSTDIR schreiben, wo die Station ihre Konfiguration \
ablegt.$\r$\nDie Installation gibt ihnen das Recht, diesen Ordner zu ändern. Fortfahren?"
    MessageBox MB_YESNO|MB_ICONQUESTION "$Testo" /SD IDYES IDYES continua
    SetErrorLevel 1
    Quit
    continua:
  ${EndIf}
FunctionEnd

Function Concedi_Diritti
  Call Cartella_DelSistema
  ${If} $R0 != ""
    nsExec::ExecToLog '"$SYSDIR\icacls.exe" "$INSTDIR" /grant ${UTENTI}:(OI)(CI)M'
    Pop $R0
    ${If} $R0 != "0"
      !insertmacro Testo \
        "Gli utenti non possono scrivere in $INSTDIR: la stazione perderebbe la configurazione. \
Installarla in un'altra cartella." \
        "Les utilisateurs ne peuvent pas écrire dans $INSTDIR : la station perdrait sa configuration. \
L'installer dans un autre dossier." \
        "The users cannot write in $INSTDIR: the station would lose its configuration. \
Install it in another folder." \
        "Los usuarios no pueden escribir en $INSTDIR: la estación perdería su configuración. \
Instálela en otra carpeta." \
        "Die Benutzer können nicht in $INSTDIR schreiben: Die Station würde ihre Konfiguration verlieren. \
Bitte in einem anderen Ordner installieren."
      SetErrorLevel ${STATO_DIRITTI}
      MessageBox MB_OK|MB_ICONEXCLAMATION "$Testo" /SD IDOK
    ${EndIf}
  ${EndIf}
FunctionEnd

; An update keeps the workshop's configuration as it finds it, and a copy of that day beside it: the first of the day is
; the one from before, whatever else is installed until the evening.
Function Copia_Configurazione
  ${If} ${FileExists} "$INSTDIR\lumira.ini"
    ${GetTime} "" "L" $R1 $R2 $R3 $R4 $R5 $R6 $R7 ; day, month, year
    ${IfNot} ${FileExists} "$INSTDIR\lumira.ini.$R3-$R2-$R1"
      CopyFiles /SILENT "$INSTDIR\lumira.ini" "$INSTDIR\lumira.ini.nuova" ; whole or not at all, also on a full disk
      Rename "$INSTDIR\lumira.ini.nuova" "$INSTDIR\lumira.ini.$R3-$R2-$R1"
    ${EndIf}
  ${EndIf}
FunctionEnd

; Said before anything goes: whoever wants the folder empty knows what to take away by hand.
Function un.Annuncia_CosaResta
  !insertmacro Testo \
    "In $INSTDIR restano la configurazione (lumira.ini, con le sue copie) e le cartelle di scambio con i loro file. \
Tutto il resto della stazione viene tolto. Continuare?" \
    "La configuration (lumira.ini, avec ses copies) et les dossiers d'échange avec leurs fichiers restent dans \
$INSTDIR. Tout le reste de la station est supprimé. Continuer ?" \
    "The configuration (lumira.ini, with its copies) and the exchange folders with their files stay \
in $INSTDIR. All the rest of the station is removed. Continue?" \
    "La configuración (lumira.ini, con sus copias) y las carpetas de intercambio con sus archivos se quedan en \
$INSTDIR. Todo el resto de la estación se elimina. ¿Continuar?" \
    "Die Konfiguration (lumira.ini mit ihren Kopien) und die Austauschordner mit ihren Dateien bleiben in $INSTDIR. \
Der Rest der Station wird entfernt. Fortfahren?"
  MessageBox MB_OKCANCEL|MB_ICONINFORMATION "$Testo" /SD IDOK IDOK continua
  SetErrorLevel 1
  Quit
  continua:
FunctionEnd
