; The installer of Vasclip: for one user, without an administrator's rights. tools/windows/build says
; VERSION, FOLDER (the program's files), FILES (PutFiles and TakeFiles), SIZE_KB and SETUP (the file it makes).
;
;   vasclip-setup.exe            with windows
;   vasclip-setup.exe /S [/D=C:\A\Directory]   without; "/D=" comes last and takes no quotes
; Exit codes without windows: 0 done, 10 the program runs, 11 a newer one is installed, 12 the directory can't be written,
; 13 the older one could not be taken away. What is wrong then also stands in %TEMP%\vasclip-setup.txt.
Target amd64-unicode
!include MUI2.nsh
!include LogicLib.nsh
!include WordFunc.nsh
!include FileFunc.nsh
!include "${FILES}"

Name "Vasclip"
OutFile "${SETUP}"
BrandingText "Vasclip ${VERSION}"
RequestExecutionLevel user
ManifestDPIAware true
SetCompressor /SOLID lzma
InstallDir "$LOCALAPPDATA\Programs\Vasclip"
InstallDirRegKey HKCU "Software\Vasclip" "Directory"
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Vasclip"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Installs Vasclip"
VIAddVersionKey LegalCopyright ""

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Vasclip"
!define KIND "Vasclip.Report"
!define MUI_ICON "${FOLDER}/vasclip.ico"
!define MUI_UNICON "${FOLDER}/vasclip.ico"
!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TEXT "Vasclip ${VERSION} keeps comparable sales and photographs, and feeds them into the report that is open in the forms program.$\r$\n$\r$\nIt is installed for you alone and asks for no administrator. A Databook that is there stays as it is."
!define MUI_FINISHPAGE_RUN "$INSTDIR\vasclip.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Start Vasclip"

!insertmacro MUI_PAGE_WELCOME
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE LeaveDirectory
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!define MUI_UNCONFIRMPAGE_TEXT_TOP "The program is taken away. Your Databook, photographs, reports and settings stay where they are."
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Says what is wrong and ends; without windows into a file.
!macro Refuse CODE WORDS
  ClearErrors
  FileOpen $9 "$TEMP\vasclip-setup.txt" w
  ${IfNot} ${Errors}
    FileWrite $9 "${WORDS}$\r$\n"
    FileClose $9
  ${EndIf}
  MessageBox MB_OK|MB_ICONSTOP "${WORDS}" /SD IDOK
  SetErrorLevel ${CODE}
  Quit
!macroend

; A program that runs can't be opened for writing. $0 is the name of one that does, or nothing.
!macro LookAt PROGRAM
  ${If} ${FileExists} "$INSTDIR\${PROGRAM}.exe"
    ClearErrors
    FileOpen $1 "$INSTDIR\${PROGRAM}.exe" a
    ${If} ${Errors}
      StrCpy $0 "${PROGRAM}.exe"
    ${Else}
      FileClose $1
    ${EndIf}
  ${EndIf}
!macroend
!macro LookForRunning UN
Function ${UN}LookForRunning
  StrCpy $0 ""
  !insertmacro LookAt vasclip-demo
  !insertmacro LookAt vasctl
  !insertmacro LookAt kelforms
  !insertmacro LookAt vasclip
FunctionEnd
!macroend
!insertmacro LookForRunning ""
!insertmacro LookForRunning "un."

; Waits until nothing of the program runs, or ends.
!macro WaitForEnd UN
  ${Do}
    Call ${UN}LookForRunning
    ${If} $0 == ""
      ${ExitDo}
    ${EndIf}
    ${If} ${Silent}
      !insertmacro Refuse 10 "$0 is running in $INSTDIR. Close it and start again; nothing was changed."
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$0 is running in $INSTDIR. Close it, then choose Retry." IDRETRY +2
    Quit
  ${Loop}
!macroend

; $0 is "1" if files can be written into the directory, which is made.
Function TryDirectory
  StrCpy $0 ""
  ClearErrors
  CreateDirectory "$INSTDIR"
  FileOpen $1 "$INSTDIR\vasclip-setup.tmp" w
  ${IfNot} ${Errors}
    FileClose $1
    Delete "$INSTDIR\vasclip-setup.tmp"
    StrCpy $0 "1"
  ${EndIf}
FunctionEnd

!define NO_RIGHTS "Nothing can be written into $INSTDIR. Choose a directory of your own, such as $LOCALAPPDATA\Programs\Vasclip."

Function LeaveDirectory
  Call TryDirectory
  ${If} $0 == ""
    MessageBox MB_OK|MB_ICONEXCLAMATION "${NO_RIGHTS}"
    Abort
  ${EndIf}
  RMDir "$INSTDIR" ; where it is empty: the answer may still be Cancel
FunctionEnd

Function .onInit
  ReadRegStr $2 HKCU "${UNINSTALL}" "DisplayVersion"
  ${If} $2 != ""
    ${VersionCompare} "$2" "${VERSION}" $3
    ${If} $3 == 1
      ${If} ${Silent}
        !insertmacro Refuse 11 "Vasclip $2 is installed, which is newer than ${VERSION}. Uninstall it first if you want the older one; your data stay."
      ${EndIf}
      MessageBox MB_YESNO|MB_ICONEXCLAMATION|MB_DEFBUTTON2 "Vasclip $2 is installed, which is newer than ${VERSION}. Put the older one in its place? A Databook that the newer one has changed may then not open." IDYES +2
      Quit
    ${EndIf}
  ${EndIf}
FunctionEnd

Section
  Call TryDirectory
  ${If} $0 == ""
    !insertmacro Refuse 12 "${NO_RIGHTS}"
  ${EndIf}
  !insertmacro WaitForEnd ""

  ; An older one in this directory takes its own files away, among them those that no longer belong to it.
  ReadRegStr $2 HKCU "Software\Vasclip" "Directory"
  ${If} $2 == $INSTDIR
  ${AndIf} ${FileExists} "$INSTDIR\uninstall.exe"
    ExecWait '"$INSTDIR\uninstall.exe" /S _?=$INSTDIR' $3
    ${If} $3 != 0
      !insertmacro Refuse 13 "The older Vasclip in $INSTDIR could not be taken away (exit code $3)."
    ${EndIf}
  ${EndIf}

  ClearErrors
  SetOutPath "$INSTDIR"
  !insertmacro PutFiles
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    !insertmacro Refuse 12 "Not all files could be written into $INSTDIR. Is the disk full? Start again when there is room; your data were not touched."
  ${EndIf}

  CreateDirectory "$SMPROGRAMS\Vasclip"
  CreateShortcut "$SMPROGRAMS\Vasclip\Vasclip.lnk" "$INSTDIR\vasclip.exe"
  CreateShortcut "$SMPROGRAMS\Vasclip\Vasclip on made-up data.lnk" "$INSTDIR\demo.cmd" "" "$INSTDIR\vasclip.ico"
  CreateShortcut "$SMPROGRAMS\Vasclip\Uninstall Vasclip.lnk" "$INSTDIR\uninstall.exe"

  ; Report files: offered under "Open with", and opened by a double click where nobody else has taken them.
  WriteRegStr HKCU "Software\Classes\${KIND}" "" "Appraisal report"
  WriteRegStr HKCU "Software\Classes\${KIND}\DefaultIcon" "" "$INSTDIR\vasclip.ico"
  WriteRegStr HKCU "Software\Classes\${KIND}\shell\open\command" "" '"$INSTDIR\kelforms.exe" "%1"'
  WriteRegStr HKCU "Software\Classes\.rpt\OpenWithProgids" "${KIND}" ""
  ReadRegStr $2 HKCR ".rpt" ""
  ${If} $2 == ""
    WriteRegStr HKCU "Software\Classes\.rpt" "" "${KIND}"
  ${EndIf}
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'

  WriteRegStr HKCU "Software\Vasclip" "Directory" "$INSTDIR"
  WriteRegStr HKCU "Software\Microsoft\Windows\CurrentVersion\App Paths\vasclip.exe" "" "$INSTDIR\vasclip.exe"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Vasclip"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\vasclip.ico"
  WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" ${SIZE_KB}
  WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
SectionEnd

Section "Uninstall"
  !insertmacro WaitForEnd "un."
  !insertmacro TakeFiles
  Delete "$INSTDIR\uninstall.exe"
  SetOutPath "$TEMP"
  RMDir "$INSTDIR" ; goes only if nothing of the user's is in it

  Delete "$SMPROGRAMS\Vasclip\Vasclip.lnk"
  Delete "$SMPROGRAMS\Vasclip\Vasclip on made-up data.lnk"
  Delete "$SMPROGRAMS\Vasclip\Uninstall Vasclip.lnk"
  RMDir "$SMPROGRAMS\Vasclip"

  ReadRegStr $2 HKCU "Software\Classes\.rpt" ""
  ${If} $2 == "${KIND}"
    DeleteRegValue HKCU "Software\Classes\.rpt" ""
  ${EndIf}
  DeleteRegValue HKCU "Software\Classes\.rpt\OpenWithProgids" "${KIND}"
  DeleteRegKey /ifempty HKCU "Software\Classes\.rpt\OpenWithProgids"
  DeleteRegKey /ifempty HKCU "Software\Classes\.rpt"
  DeleteRegKey HKCU "Software\Classes\${KIND}"
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'

  DeleteRegKey HKCU "Software\Microsoft\Windows\CurrentVersion\App Paths\vasclip.exe"
  DeleteRegValue HKCU "Software\Vasclip" "Directory"
  DeleteRegKey /ifempty HKCU "Software\Vasclip"
  DeleteRegKey HKCU "${UNINSTALL}"
SectionEnd
