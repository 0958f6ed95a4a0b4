; The installer. VERSION, STAGE (the folder with the program), FILES (made by make_setup.sh: what to delete), ICON and OUT
; are given on the command line of makensis. The installer works for all users, or for one user without administrator's
; rights. Its options: /AllUsers, /CurrentUser, /S (asks no questions), /D=FOLDER (the last option, without quotes).
; With /AllUsers but without administrator's rights it shows a message, even with /S.
Target amd64-unicode
SetCompressor /SOLID lzma
AllowSkipFiles off   ; a file that can't be written is an error, also with /S

!define NAME "V.O.R.N."
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\V.O.R.N"

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR "V.O.R.N"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "UninstallString"
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include WinVer.nsh

Name "${NAME}"
OutFile "${OUT}"
BrandingText "${NAME} ${VERSION}"
VIProductVersion "${VERSION}.0.0"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey FileDescription "Installer of ${NAME}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey LegalCopyright "Copyright 2026 the V.O.R.N. team. MIT licence."
ManifestDPIAware true

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
; Explorer starts the program without the installer's rights, so that the data is copied for the user.
!define MUI_FINISHPAGE_RUN "$WINDIR\explorer.exe"
!define MUI_FINISHPAGE_RUN_PARAMETERS "$\"$INSTDIR\vorn.exe$\""
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

!macro needs_windows_10
    ${IfNot} ${AtLeastWin10}
        MessageBox MB_OK|MB_ICONSTOP "${NAME} needs Windows 10 or later." /SD IDOK
        SetErrorLevel 2
        Quit
    ${EndIf}
!macroend

; A running program can't be replaced or removed.
!macro not_running
again:
    ClearErrors
    ${If} ${FileExists} "$INSTDIR\vorn.exe"
        FileOpen $0 "$INSTDIR\vorn.exe" a
        ${If} ${Errors}
            MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${NAME} is running, or its files can't be written. Please end the program." /SD IDCANCEL IDRETRY again
            SetErrorLevel 2
            Abort
        ${EndIf}
        FileClose $0
    ${EndIf}
!macroend

; NAME is shown in the list of file types. A double click on such a file starts the trainer without loading the file. An
; extension that is registered for another program stays with that program.
!macro add_type ENDING TYPE NAME
    WriteRegStr SHCTX "Software\Classes\vorn.${TYPE}" "" "${NAME}"
    WriteRegStr SHCTX "Software\Classes\vorn.${TYPE}\DefaultIcon" "" "$INSTDIR\icons\${TYPE}.ico"
    WriteRegStr SHCTX "Software\Classes\vorn.${TYPE}\shell\open\command" "" '"$INSTDIR\vorn.exe"'
    WriteRegStr SHCTX "Software\Classes\${ENDING}\OpenWithProgids" "vorn.${TYPE}" ""
    ReadRegStr $0 HKCR "${ENDING}" ""
    ${If} $0 == ""
    ${OrIf} $0 == "vorn.${TYPE}"
        WriteRegStr SHCTX "Software\Classes\${ENDING}" "" "vorn.${TYPE}"
    ${EndIf}
!macroend

!macro remove_type ENDING TYPE
    DeleteRegKey SHCTX "Software\Classes\vorn.${TYPE}"
    ReadRegStr $0 SHCTX "Software\Classes\${ENDING}" ""
    ${If} $0 == "vorn.${TYPE}"
        DeleteRegValue SHCTX "Software\Classes\${ENDING}" ""
    ${EndIf}
    DeleteRegValue SHCTX "Software\Classes\${ENDING}\OpenWithProgids" "vorn.${TYPE}"
    DeleteRegKey /ifempty SHCTX "Software\Classes\${ENDING}\OpenWithProgids"
    DeleteRegKey /ifempty SHCTX "Software\Classes\${ENDING}"
!macroend

; Keeps $INSTDIR, which MultiUser replaces by the registered or the usual folder.
Var given_folder

Function .onInit
    !insertmacro needs_windows_10
    StrCpy $given_folder $INSTDIR   ; the folder of /D
    !insertmacro MULTIUSER_INIT
    ${If} $given_folder != ""
        StrCpy $INSTDIR $given_folder
    ${EndIf}
FunctionEnd

; The uninstaller removes the installation that it belongs to, even if another one is registered for all users.
Function un.onInit
    StrCpy $given_folder $INSTDIR
    !insertmacro MULTIUSER_UNINIT
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 == $given_folder
        Call un.MultiUser.InstallMode.CurrentUser
    ${EndIf}
    StrCpy $INSTDIR $given_folder
FunctionEnd

Section "install"
    !insertmacro not_running
    ; Uninstalls a registered installation first: it can have files that this version lacks, or be in another folder.
    ReadRegStr $R0 SHCTX "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $R0 != ""
    ${AndIf} ${FileExists} "$R0\uninstall.exe"
        ExecWait '"$R0\uninstall.exe" /S /$MultiUser.InstallMode _?=$R0' $0
        ${If} $0 == 0
            Delete "$R0\uninstall.exe"
            RMDir "$R0"
        ${EndIf}
    ${EndIf}
    SetOutPath "$INSTDIR"
    File /r "${STAGE}/*"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\V.O.R.N..lnk" "$INSTDIR\vorn.exe"
    !insertmacro add_type ".arf" "range" "V.O.R.N. range"
    !insertmacro add_type ".prf" "practice" "V.O.R.N. practice"
    !insertmacro add_type ".vrn" "record" "V.O.R.N. practice record"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "the V.O.R.N. team"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\vorn.exe"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0
    ${RefreshShellIcons}
SectionEnd

; Deletes only the installed files: what a user has saved in the folder stays.
Section "Uninstall"
    !insertmacro not_running
    !include "${FILES}"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 == $INSTDIR   ; otherwise another installation is registered
        Delete "$SMPROGRAMS\V.O.R.N..lnk"
        !insertmacro remove_type ".arf" "range"
        !insertmacro remove_type ".prf" "practice"
        !insertmacro remove_type ".vrn" "record"
        DeleteRegKey SHCTX "${UNINSTALL_KEY}"
        ${un.RefreshShellIcons}
    ${EndIf}
SectionEnd
