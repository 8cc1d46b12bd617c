; The libraries that are registered. Where another copy is registered already, the installation takes its place, and gives
; it back when it goes.
!ifdef ONLY32
  !define VIEW 32
!else
  !define VIEW 64
!endif

Var Width    ; "x64" or "x86", which is also a folder
Var Library  ; its file
Var ProgId   ; what it registers, to find its registration by

!macro ForEachLibraryOf WIDTH ACTION
  StrCpy $Width ${WIDTH}
  StrCpy $Library vmGridViews.dll
  StrCpy $ProgId vmGridViews.vmgrEdit
  Call ${ACTION}
  StrCpy $Library vmGridViewsStrings.dll
  StrCpy $ProgId vmGridViewsStrings.MlStringService
  Call ${ACTION}
  StrCpy $Library vmgWorkbook.dll
  StrCpy $ProgId vmGridViews.Workbook
  Call ${ACTION}
!macroend

; X64 and X86 are "1" where the libraries of that width are meant.
!macro ForEachLibrary X64 X86 ACTION
  ${If} "${X64}" == 1
    !insertmacro ForEachLibraryOf x64 ${ACTION}
  ${EndIf}
  ${If} "${X86}" == 1
    !insertmacro ForEachLibraryOf x86 ${ACTION}
  ${EndIf}
!macroend

!macro LibraryFunctions un
; Runs regsvr32 with the switches $0 on the file $1; $0 becomes its exit code, or "error".
Function ${un}regsvr32
  ${If} $Scope == user
    StrCpy $0 "$0 /n /i:user"
  ${EndIf}
  StrCpy $2 $SYSDIR
  !ifndef ONLY32
    ${If} $Width == x86
      StrCpy $2 $WINDIR\SysWOW64
    ${EndIf}
  !endif
  StrCpy $3 error
  ExecWait '"$2\regsvr32.exe" /s $0 "$1"' $3
  StrCpy $0 $3
FunctionEnd

; $2 becomes the file that is registered for the width's $ProgId, or "".
Function ${un}findRegistered
  ReadRegStr $1 SHCTX "Software\Classes\$ProgId\CLSID" ""  ; both widths share it
  !ifndef ONLY32
    ${If} $Width == x86
      SetRegView 32
    ${EndIf}
  !endif
  ReadRegStr $2 SHCTX "Software\Classes\CLSID\$1\InprocServer32" ""
  SetRegView ${VIEW}
FunctionEnd

; Registers the copy that was registered before the installation, where nobody else has taken its place.
Function ${un}giveBack
  Call ${un}findRegistered
  ReadRegStr $1 SHCTX "${UNINSTALL}\Former" "$Width\$Library"
  ${If} $2 == ""
  ${AndIf} $1 != ""
  ${AndIf} ${FileExists} "$1"
    StrCpy $0 ""
    Call ${un}regsvr32
  ${EndIf}
FunctionEnd

Function ${un}register
  ${If} $Failure == ""
    StrCpy $0 ""
    StrCpy $1 "$Base\$Width\$Library"
    Call ${un}regsvr32
    ${If} $0 != 0
      StrCpy $Failure $(CannotRegister)
    ${EndIf}
  ${EndIf}
FunctionEnd

; In the course of another failure: each library gets its turn.
Function ${un}registerAgain
  StrCpy $Failure ""
  Call ${un}register
FunctionEnd

Function ${un}unregister
  ${If} $Failure == ""
    StrCpy $0 /u
    StrCpy $1 "$Base\$Width\$Library"
    Call ${un}regsvr32
    ${If} $0 != 0
      StrCpy $Failure $(CannotUnregister)
    ${EndIf}
  ${EndIf}
FunctionEnd
!macroend

Function rememberFormer
  Call findRegistered
  ${If} $2 != ""
  ${AndIf} $2 != "$Old\$Width\$Library"
  ${AndIf} $2 != "$INSTDIR\$Width\$Library"
  ${AndIf} ${FileExists} "$2"
    WriteRegStr SHCTX "${UNINSTALL}\Former" "$Width\$Library" $2
  ${EndIf}
FunctionEnd

; In the course of another failure.
Function takeOut
  StrCpy $Failure ""
  Call unregister
  Call giveBack
FunctionEnd
