; The setup program of Korvane for Windows, made by makensis on any system
; (packaging/windows/CMakeLists.txt passes VERSION, STAGE, ICON and OUTFILE):
;
;   Korvane-<version>-setup.exe [/S] [/CurrentUser | /AllUsers] [/D=folder]
;   uninstall.exe [/S] [/ForgetFolder]
;
; It installs for the current user, with no administrator needed, or for
; every user of the machine when that is chosen on its first page or given as
; /AllUsers. The uninstaller removes every file and registry entry the setup
; made. The folder Korvane remembers (HKCU\Software\Korvane, DefaultDir) is
; the user's, not the setup's: it stays unless the user ticks its box or
; gives /ForgetFolder.

; A 64-bit setup for a 64-bit program: it sees the registry and Program Files
; as the program does.
Target amd64-unicode
SetCompressor /SOLID lzma

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Korvane"
!define KOB_PROGID "Korvane.kob"

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_DEFAULT_CURRENTUSER
!define MULTIUSER_INSTALLMODE_INSTDIR "Korvane"
!define MULTIUSER_USE_PROGRAMFILES64
; A second setup or the uninstaller finds the mode and folder of the first.
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallMode"
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include Sections.nsh

Name "Korvane"
OutFile "${OUTFILE}"
BrandingText "Korvane ${VERSION}"
VIProductVersion "${VERSION}.0.0"
VIAddVersionKey "ProductName" "Korvane"
VIAddVersionKey "FileDescription" "Korvane ${VERSION} setup"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "CompanyName" "The Korvane developers"
VIAddVersionKey "LegalCopyright" "Copyright (c) 2026 The Korvane developers, MIT License"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!insertmacro MUI_PAGE_LICENSE "${STAGE}/LICENSE.txt"
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\korvane.exe"
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Every file the setup puts in the folder, once: the uninstaller removes the same list.
!macro EachFile Do
  !insertmacro ${Do} "korvane.exe"
  !insertmacro ${Do} "korvane-cli.exe"
  !insertmacro ${Do} "Korvane_Help.html"
  !insertmacro ${Do} "README.md"
  !insertmacro ${Do} "LICENSE.txt"
!macroend
!macro PutFile Name
  File "${STAGE}/${Name}"
!macroend
!macro RemoveFile Name
  Delete "$INSTDIR\${Name}"
!macroend

Function .onInit
  !insertmacro MULTIUSER_INIT
FunctionEnd

Section "Korvane" SecProgram
  SectionIn RO
  SetOutPath "$INSTDIR"
  !insertmacro EachFile PutFile
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Korvane.lnk" "$INSTDIR\korvane.exe"

  ; Apps & features: SHCTX is the current user's hive or the machine's, as the mode is.
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "Korvane"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "The Korvane developers"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\korvane.exe,0"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallMode" "$MultiUser.InstallMode"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" "$0"

  ; KOB files: Korvane is offered in "Open with", without taking the double
  ; click from a program the user chose before.
  WriteRegStr SHCTX "Software\Classes\${KOB_PROGID}" "" "KOB object file"
  WriteRegStr SHCTX "Software\Classes\${KOB_PROGID}\DefaultIcon" "" "$INSTDIR\korvane.exe,0"
  WriteRegStr SHCTX "Software\Classes\${KOB_PROGID}\shell\open\command" "" '"$INSTDIR\korvane.exe" "%1"'
  WriteRegStr SHCTX "Software\Classes\.kob\OpenWithProgids" "${KOB_PROGID}" ""
SectionEnd

Section "un.Korvane" SecUninstall
  SectionIn RO
  !insertmacro EachFile RemoveFile
  Delete "$INSTDIR\uninstall.exe"
  ; Only if empty: files the user put there stay, and so does their folder.
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Korvane.lnk"
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
  DeleteRegKey SHCTX "Software\Classes\${KOB_PROGID}"
  DeleteRegValue SHCTX "Software\Classes\.kob\OpenWithProgids" "${KOB_PROGID}"
  DeleteRegKey /ifempty SHCTX "Software\Classes\.kob\OpenWithProgids"
  DeleteRegKey /ifempty SHCTX "Software\Classes\.kob"
SectionEnd

Section /o "un.The folder Korvane remembers" SecForgetFolder
  DeleteRegValue HKCU "Software\Korvane" "DefaultDir"
  DeleteRegKey /ifempty HKCU "Software\Korvane"
SectionEnd

; After the sections, whose numbers it uses.
Function un.onInit
  !insertmacro MULTIUSER_UNINIT
  ${GetParameters} $R0
  ClearErrors
  ${GetOptions} $R0 "/ForgetFolder" $R1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${SecForgetFolder}
  ${EndIf}
FunctionEnd
