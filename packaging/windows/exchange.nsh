; The old files and registrations leave and the new ones come, or all goes back to where it was.
Function exchangeFiles
  !insertmacro ForEachFile $PLUGINSDIR\old.txt setAside
  !insertmacro ForEachFile $PLUGINSDIR\new.txt setAside
  ${If} $Failure != ""
    Return
  ${EndIf}
  SetOverwrite try
  ClearErrors
  SetOutPath $INSTDIR
  File /r /x x64 /x x86 "${STAGE}\*.*"
  !ifndef ONLY32
    ${If} $X64 == 1
      SetOutPath $INSTDIR\x64
      File "${STAGE}\x64\*.*"
    ${EndIf}
  !endif
  ${If} $X86 == 1
    SetOutPath $INSTDIR\x86
    File "${STAGE}\x86\*.*"
  ${EndIf}
  WriteUninstaller $INSTDIR\uninstall.exe
  ${If} ${Errors}
    StrCpy $R9 ""
    StrCpy $Failure $(CannotWrite)
  ${EndIf}
  SetOutPath $TEMP  ; no folder of the installation may be the current one, which cannot be removed
FunctionEnd

Function exchangeRegistration
  StrCpy $Base $Old\${ASIDE}
  ${If} $X64 != 1
    !insertmacro ForEachLibrary $OldX64 "" unregister
  ${EndIf}
  ${If} $X86 != 1
    !insertmacro ForEachLibrary "" $OldX86 unregister
  ${EndIf}
  !insertmacro ForEachLibrary $X64 $X86 rememberFormer
  StrCpy $Base $INSTDIR
  !insertmacro ForEachLibrary $X64 $X86 register
FunctionEnd

; After a failure: as it was before.
Function goBack
  StrCpy $Base $INSTDIR
  ${If} $OldX64 != 1
    !insertmacro ForEachLibrary $X64 "" takeOut
  ${EndIf}
  ${If} $OldX86 != 1
    !insertmacro ForEachLibrary "" $X86 takeOut
  ${EndIf}
  !insertmacro ForEachFile $PLUGINSDIR\new.txt remove
  !insertmacro ForEachFile $PLUGINSDIR\old.txt putBack
  !insertmacro ForEachFile $PLUGINSDIR\new.txt putBack
  RMDir /r $Old\${ASIDE}
  StrCpy $Base $Old
  !insertmacro ForEachLibrary $OldX64 $OldX86 registerAgain
  ${If} $OldVersion == ""
    DeleteRegKey SHCTX ${UNINSTALL}
  ${EndIf}
  RMDir $INSTDIR
FunctionEnd

Function removeOld
  RMDir /r $Old\${ASIDE}
  StrCpy $Base $Old
  !insertmacro ForEachFile $PLUGINSDIR\old.txt removeFolders
  RMDir $Old
FunctionEnd
