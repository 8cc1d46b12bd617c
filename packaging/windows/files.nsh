; The installation's files as a list, and how they change hands all together or not at all: the old ones are set aside, the
; new ones written, and then either the old ones go or they come back.
!define ASIDE ~before

Var Base  ; the folder where remove works

; Calls ACTION for each file of a list, with the path below the installation's folder in $R9.
!macro ForEachFile LIST ACTION
  ClearErrors
  FileOpen $R8 "${LIST}" r
  ${IfNot} ${Errors}
    ${Do}
      FileRead $R8 $R9
      ${If} ${Errors}
        ${ExitDo}
      ${EndIf}
      ${TrimNewLines} $R9 $R9
      Call ${ACTION}
      ClearErrors
    ${Loop}
    FileClose $R8
  ${EndIf}
!macroend

!macro FileFunctions un
; Tells the first file that another program uses in $Failure. The uninstaller itself is always in use.
Function ${un}requireUnused
  ${If} $Failure == ""
  ${AndIf} $R9 != uninstall.exe
  ${AndIf} ${FileExists} "$Old\$R9"
    ClearErrors
    FileOpen $0 "$Old\$R9" a
    ${If} ${Errors}
      StrCpy $Failure $(InUse)
    ${Else}
      FileClose $0
    ${EndIf}
  ${EndIf}
FunctionEnd

; Removes the file, and its folders where nothing else is in them.
Function ${un}remove
  Delete "$Base\$R9"
  Call ${un}removeFolders
FunctionEnd

Function ${un}removeFolders
  StrCpy $0 $R9
  ${Do}
    ${GetParent} $0 $0
    ${If} $0 == ""
      ${ExitDo}
    ${EndIf}
    RMDir "$Base\$0"
  ${Loop}
FunctionEnd
!macroend

Function setAside
  ${If} $Failure == ""
  ${AndIf} ${FileExists} "$Old\$R9"
    ${GetParent} "$Old\${ASIDE}\$R9" $0
    CreateDirectory $0
    ClearErrors
    Rename "$Old\$R9" "$Old\${ASIDE}\$R9"
    ${If} ${Errors}
      StrCpy $Failure $(CannotWrite)
    ${EndIf}
  ${EndIf}
FunctionEnd

Function putBack
  ${If} ${FileExists} "$Old\${ASIDE}\$R9"
    ${GetParent} "$Old\$R9" $0
    CreateDirectory $0
    Rename "$Old\${ASIDE}\$R9" "$Old\$R9"
  ${EndIf}
FunctionEnd
