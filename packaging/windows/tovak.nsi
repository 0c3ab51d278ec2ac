; The installer: for all users with the rights of an administrator, else for one. /S installs without asking, /AllUsers or
; /CurrentUser says for whom, /D=FOLDER (last) where. It is made by ./packaging/windows/installer.
Target amd64-unicode
Unicode true
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR "Tovak"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "Software\Tovak"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "Folder"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "Software\Tovak"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "Folder"
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tovak"

Name "Tovak"
OutFile "${OUTPUT}"
SetCompressor /SOLID lzma
BrandingText "Tovak ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Tovak"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Installs Tovak"
VIAddVersionKey LegalCopyright "Vesko"

!define MUI_ICON tovak.ico
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; Deletes every file that is installed, by its name: a folder that was chosen may hold others.
!macro RemoveFiles
  !include "${REMOVALS}"
!macroend

Section "Tovak"
  SetRegView 64
  SetOutPath "$INSTDIR"
  File /r "${STAGE}/*.*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateDirectory "$SMPROGRAMS\Tovak"
  IfFileExists "$INSTDIR\bin\TovakWindow.dll" 0 console
    CreateShortCut "$SMPROGRAMS\Tovak\Tovak.lnk" "$INSTDIR\bin\tovakw.exe"
  console:
  CreateShortCut "$SMPROGRAMS\Tovak\Tovak for the console.lnk" "$SYSDIR\cmd.exe" '/k ""$INSTDIR\bin\tovak.exe" -h"' \
    "$INSTDIR\bin\tovak.exe"
  CreateShortCut "$SMPROGRAMS\Tovak\Samples.lnk" "$INSTDIR\samples"
  WriteRegStr SHCTX "Software\Tovak" "Folder" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "Tovak"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\bin\tovak.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "Vesko"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

Function .onInit
  SetRegView 64
  !insertmacro MULTIUSER_INIT
FunctionEnd

Function un.onInit
  SetRegView 64
  !insertmacro MULTIUSER_UNINIT
FunctionEnd

; A user's own files in the data folder stay.
Section "Uninstall"
  SetRegView 64
  !insertmacro RemoveFiles
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  RMDir /r "$SMPROGRAMS\Tovak"
  DeleteRegKey SHCTX "Software\Tovak"
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
SectionEnd
