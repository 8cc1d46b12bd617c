; The help file in the folder that the programs of one maker share. The libraries ask the setting helpFolder for it, each
; width its own, and without a setting take a folder that is fixed for the width.
;
; A folder that is set already stays, and gets the file. Where none is set, the fixed folder is set: so no other program
; of the maker finds its help elsewhere than before, neither now nor when the setting goes with the installation.
!define COMMON SOFTWARE\Velmora\Common
!define HELP_FILE VMgridViews.chm

!macro HelpOf WIDTH BITS FIXED
  ReadRegStr $0 HKLM${BITS} ${COMMON} helpFolder
  ${If} $0 == ""
    StrCpy $0 ${FIXED}\Velmora\Help
    WriteRegStr HKLM${BITS} ${COMMON} helpFolder $0
    WriteRegStr HKLM ${UNINSTALL} "Set ${WIDTH}" $0
  ${EndIf}
  ${IfNot} ${FileExists} "$0\${HELP_FILE}"  ; else somebody else has put it there
    WriteRegStr HKLM ${UNINSTALL} "Help ${WIDTH}" "$0\${HELP_FILE}"
  ${EndIf}
  CreateDirectory $0
  ClearErrors
  CopyFiles /SILENT $INSTDIR\help\${HELP_FILE} $0
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONEXCLAMATION $(NoHelp) /SD IDOK
  ${EndIf}
!macroend

!macro RemoveHelpOf WIDTH BITS
  ReadRegStr $0 HKLM ${UNINSTALL} "Help ${WIDTH}"
  ${If} $0 != ""
    Delete $0
    DeleteRegValue HKLM ${UNINSTALL} "Help ${WIDTH}"
    ${GetParent} $0 $1
    RMDir $1  ; where nothing else is in it
  ${EndIf}
  ReadRegStr $0 HKLM ${UNINSTALL} "Set ${WIDTH}"
  ${If} $0 != ""
    ReadRegStr $1 HKLM${BITS} ${COMMON} helpFolder
    ${If} $1 == $0
      DeleteRegValue HKLM${BITS} ${COMMON} helpFolder
      DeleteRegKey /ifempty HKLM${BITS} ${COMMON}
      DeleteRegKey /ifempty HKLM${BITS} SOFTWARE\Velmora
    ${EndIf}
    DeleteRegValue HKLM ${UNINSTALL} "Set ${WIDTH}"
    ${GetParent} $0 $1
    RMDir $1  ; the maker's
  ${EndIf}
!macroend

!macro HelpFunctions un
Function ${un}removeHelp
  ${If} $Scope == machine
    !insertmacro RemoveHelpOf x64 64
    !insertmacro RemoveHelpOf x86 32
  ${EndIf}
FunctionEnd
!macroend

; For the machine only: a user may not set the folder, nor write there.
Function addHelp
  Call removeHelp  ; the folder may have been set anew, or a width left out
  ${If} $Scope == machine
    ${If} $X64 == 1
      !insertmacro HelpOf x64 64 $COMMONFILES64
    ${EndIf}
    ${If} $X86 == 1
      !insertmacro HelpOf x86 32 $COMMONFILES32
    ${EndIf}
  ${EndIf}
FunctionEnd
