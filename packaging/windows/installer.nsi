; The installer. On a Windows of 64 bits it brings the libraries of both widths; with ONLY32 it is a program of 32 bits
; for a Windows of 32 bits.
;
;   makensis -DVERSION=1.2.3 -DSTAGE=FOLDER -DOUT=FILE [-DONLY32] [-DQUICK] installer.nsi
;
; STAGE holds the files of the zip, among them files.txt, which lists them. QUICK does not compress, for tests.
; Options of the installer, and its exit codes: readme.txt.in. Failures are also told in %TEMP%\vmGridViews-setup.log.
Unicode true
!ifdef ONLY32
  Target x86-unicode
!else
  Target amd64-unicode
!endif
!ifdef QUICK
  SetCompress off
!else
  SetCompressor /SOLID lzma
!endif
ManifestDPIAware true
RequestExecutionLevel highest  ; who has no administrator's rights installs for himself

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\vmGridViews"
!define ERROR_IN_USE 3
!define ERROR_WRITING 4
!define ERROR_REGISTERING 5
!define ERROR_NEWER 6
!define ERROR_WINDOWS 7
!define ERROR_RIGHTS 8

!include FileFunc.nsh
!include LogicLib.nsh
!include MUI2.nsh
!include TextFunc.nsh
!include WordFunc.nsh
!include x64.nsh

Var Scope        ; "machine" or "user"
Var Old          ; the folder of the installation that is there; $INSTDIR where there is none
Var OldVersion   ; its version; "" where there is none
Var OldX64       ; "1" where it has the libraries of 64 bits
Var OldX86
Var X64          ; "1" where the new one has them
Var X86
Var Failure      ; what has gone wrong, for people; "" while nothing has
Var ScopeText

Name vmGridViews
OutFile "${OUT}"
InstallDir ""
BrandingText "vmGridViews ${VERSION}"
VIProductVersion ${VERSION}.0
VIAddVersionKey ProductName vmGridViews
VIAddVersionKey ProductVersion ${VERSION}
VIAddVersionKey FileDescription "vmGridViews setup"
VIAddVersionKey FileVersion ${VERSION}
VIAddVersionKey LegalCopyright "vmGridViews contributors, MIT licence"

!define MUI_ICON ${__FILEDIR__}/../../hosts/gridhost/gridhost.ico
!define MUI_UNICON ${MUI_ICON}
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_NODESC
!define MUI_COMPONENTSPAGE_TEXT_TOP "$ScopeText $(ChooseWidth)"
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE requireWidth
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE Greek
!include files.nsh
!include libraries.nsh
!include help.nsh
!include texts.nsh

!macro CommonFunctions un
; Tells $Failure and ends with the exit code $0.
Function ${un}fail
  DetailPrint $Failure
  FileOpen $1 $TEMP\vmGridViews-setup.log w
  FileWriteUTF16LE /BOM $1 "$Failure$\r$\n"
  FileClose $1
  MessageBox MB_OK|MB_ICONSTOP $Failure /SD IDOK
  SetErrorLevel $0
  Abort $Failure
FunctionEnd

; Whether no file of the lists is in use; asks the user to close what uses it.
Function ${un}requireAllUnused
  ${Do}
    StrCpy $Failure ""
    !insertmacro ForEachFile $PLUGINSDIR\old.txt ${un}requireUnused
    !insertmacro ForEachFile $PLUGINSDIR\new.txt ${un}requireUnused
    ${If} $Failure == ""
      ${ExitDo}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION $Failure /SD IDCANCEL IDRETRY again
    StrCpy $0 ${ERROR_IN_USE}
    Call ${un}fail
    again:
  ${Loop}
FunctionEnd
!insertmacro FileFunctions "${un}"
!insertmacro LibraryFunctions "${un}"
!insertmacro HelpFunctions "${un}"
!macroend
!insertmacro CommonFunctions ""
!insertmacro CommonFunctions un.
!include exchange.nsh

Function .onInit
  SetRegView ${VIEW}
  StrCpy $X64 ""
  !ifdef ONLY32
    ${If} ${RunningX64}
      StrCpy $Failure $(WrongWindows)
      StrCpy $0 ${ERROR_WINDOWS}
      Call fail
    ${EndIf}
  !endif
  Call chooseScope
  Call findOld
  Call chooseWidths
FunctionEnd

; For the machine with an administrator's rights, as registering does; else, or where he asks for it, for the user alone.
Function chooseScope
  UserInfo::GetAccountType
  Pop $0
  ${GetParameters} $1
  ClearErrors
  ${GetOptions} $1 /CurrentUser $2
  ${IfNot} ${Errors}
  ${OrIf} $0 != Admin
    SetShellVarContext current
    StrCpy $Scope user
    StrCpy $ScopeText $(ForUser)
  ${Else}
    SetShellVarContext all
    StrCpy $Scope machine
    StrCpy $ScopeText $(ForMachine)
  ${EndIf}
FunctionEnd

Function findOld
  ReadRegStr $Old SHCTX ${UNINSTALL} InstallLocation
  ReadRegStr $OldVersion SHCTX ${UNINSTALL} DisplayVersion
  ReadRegStr $OldX64 SHCTX ${UNINSTALL} x64
  ReadRegStr $OldX86 SHCTX ${UNINSTALL} x86
  ${VersionCompare} "$OldVersion" ${VERSION} $0
  ${If} $0 == 1
    StrCpy $Failure $(Newer)
    StrCpy $0 ${ERROR_NEWER}
    Call fail
  ${EndIf}
  ${If} $INSTDIR == ""  ; no /D
    StrCpy $INSTDIR $Old
  ${EndIf}
  ${If} $INSTDIR == ""
    ${If} $Scope == user
      StrCpy $INSTDIR $LOCALAPPDATA\Programs\vmGridViews
    ${ElseIf} ${VIEW} == 64
      StrCpy $INSTDIR $PROGRAMFILES64\vmGridViews
    ${Else}
      StrCpy $INSTDIR $PROGRAMFILES\vmGridViews
    ${EndIf}
  ${EndIf}
FunctionEnd

!ifndef ONLY32
Section $(Bits64) SectionX64
  AddSize ${SIZE_X64}
  StrCpy $X64 1
SectionEnd
!endif

Section $(Bits32) SectionX86
  AddSize ${SIZE_X86}
  StrCpy $X86 1
SectionEnd

Section -install
  AddSize ${SIZE_COMMON}
  ${If} $Old == ""
    StrCpy $Old $INSTDIR
  ${EndIf}
  InitPluginsDir
  File /oname=$PLUGINSDIR\new.txt "${STAGE}\files.txt"
  CopyFiles /SILENT "$Old\files.txt" $PLUGINSDIR\old.txt  ; what a former version had and this one has not
  RMDir /r "$Old\${ASIDE}"  ; of an installer that was broken off
  Call requireAllUnused

  Call exchangeFiles
  StrCpy $0 ${ERROR_WRITING}
  ${If} $Failure == ""
    Call exchangeRegistration
    StrCpy $0 ${ERROR_REGISTERING}
  ${EndIf}
  ${If} $Failure != ""
    StrCpy $R0 $0
    StrCpy $R1 $Failure
    Call goBack
    StrCpy $0 $R0
    StrCpy $Failure $R1
    Call fail
  ${EndIf}

  Call removeOld
  Call addHelp
  Call addToWindows
SectionEnd

; Those that the installation has, else all that this Windows can run; /Bits=64 and /Bits=32 choose one.
Function chooseWidths
  !ifndef ONLY32
    StrCpy $0 1
    StrCpy $1 1
    ${If} $OldVersion != ""
      StrCpy $0 $OldX64
      StrCpy $1 $OldX86
    ${EndIf}
    ${GetParameters} $2
    ${GetOptions} $2 /Bits= $3
    ${If} $3 == 64
    ${OrIfNot} ${FileExists} $WINDIR\SysWOW64\regsvr32.exe
      StrCpy $0 1
      StrCpy $1 0
    ${ElseIf} $3 == 32
      StrCpy $0 0
      StrCpy $1 1
    ${EndIf}
    ${If} $0 != 1
      !insertmacro UnselectSection ${SectionX64}
    ${EndIf}
    ${If} $1 != 1
      !insertmacro UnselectSection ${SectionX86}
    ${EndIf}
    ${IfNot} ${FileExists} $WINDIR\SysWOW64\regsvr32.exe
      !insertmacro SetSectionFlag ${SectionX86} ${SF_RO}
    ${EndIf}
  !endif
FunctionEnd

Function requireWidth
  !ifndef ONLY32
    ${IfNot} ${SectionIsSelected} ${SectionX64}
    ${AndIfNot} ${SectionIsSelected} ${SectionX86}
      MessageBox MB_OK|MB_ICONEXCLAMATION $(ChooseWidth)
      Abort
    ${EndIf}
  !endif
FunctionEnd

Function addToWindows
  StrCpy $0 x64
  ${If} $X64 != 1
    StrCpy $0 x86
  ${EndIf}
  CreateShortcut "$SMPROGRAMS\vmGridViews gridhost.lnk" $INSTDIR\$0\gridhost.exe
  WriteRegStr SHCTX ${UNINSTALL} DisplayName vmGridViews
  WriteRegStr SHCTX ${UNINSTALL} DisplayVersion ${VERSION}
  WriteRegStr SHCTX ${UNINSTALL} DisplayIcon $INSTDIR\$0\gridhost.exe
  WriteRegStr SHCTX ${UNINSTALL} Publisher "vmGridViews contributors"
  WriteRegStr SHCTX ${UNINSTALL} InstallLocation $INSTDIR
  WriteRegStr SHCTX ${UNINSTALL} UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX ${UNINSTALL} QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegStr SHCTX ${UNINSTALL} x64 "$X64"
  WriteRegStr SHCTX ${UNINSTALL} x86 "$X86"
  WriteRegDWORD SHCTX ${UNINSTALL} NoModify 1
  WriteRegDWORD SHCTX ${UNINSTALL} NoRepair 1
  ${GetSize} $INSTDIR /S=0K $0 $1 $2
  WriteRegDWORD SHCTX ${UNINSTALL} EstimatedSize $0
FunctionEnd

Function un.onInit
  SetRegView ${VIEW}
  StrCpy $Old $INSTDIR
  SetShellVarContext all
  StrCpy $Scope machine
  ReadRegStr $0 SHCTX ${UNINSTALL} InstallLocation
  ${If} $0 != $INSTDIR
    SetShellVarContext current
    StrCpy $Scope user
    Return
  ${EndIf}
  UserInfo::GetAccountType
  Pop $0
  ${If} $0 != Admin
    StrCpy $Failure $(NoRights)
    StrCpy $0 ${ERROR_RIGHTS}
    Call un.fail
  ${EndIf}
FunctionEnd

Section un.install
  InitPluginsDir
  File /oname=$PLUGINSDIR\new.txt "${STAGE}\files.txt"
  Call un.requireAllUnused

  ReadRegStr $OldX64 SHCTX ${UNINSTALL} x64
  ReadRegStr $OldX86 SHCTX ${UNINSTALL} x86
  StrCpy $Base $INSTDIR
  !insertmacro ForEachLibrary $OldX64 $OldX86 un.unregister
  ${If} $Failure != ""
    StrCpy $R1 $Failure
    !insertmacro ForEachLibrary $OldX64 $OldX86 un.registerAgain
    StrCpy $Failure $R1
    StrCpy $0 ${ERROR_REGISTERING}
    Call un.fail
  ${EndIf}

  !insertmacro ForEachFile $PLUGINSDIR\new.txt un.remove
  RMDir $INSTDIR
  Call un.removeHelp
  Delete "$SMPROGRAMS\vmGridViews gridhost.lnk"
  !insertmacro ForEachLibrary $OldX64 $OldX86 un.giveBack
  DeleteRegKey SHCTX ${UNINSTALL}
SectionEnd
