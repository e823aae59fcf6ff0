; What installing and removing have in common. $0 to $9 are everybody's; $R0 to $R9 belong to these functions.

; In $0 what is to be said, in $1 the exit code: the end.
!macro Fail un
Function ${un}Fail
    SetErrorLevel $1
    ${If} ${Silent}
        ; To whoever has started this and can read it.
        System::Call 'kernel32::GetStdHandle(i -11) p .R0'
        ${If} $R0 P<= 0
            System::Call 'kernel32::AttachConsole(i -1)'
            System::Call 'kernel32::GetStdHandle(i -11) p .R0'
        ${EndIf}
        FileWrite $R0 "$0$\r$\n"
    ${Else}
        MessageBox MB_OK|MB_ICONSTOP $0
    ${EndIf}
    Quit
FunctionEnd
!macroend
!insertmacro Fail ""
!insertmacro Fail "un."

; Comes back when no program holds any file below the folder.
!macro WaitUntilFree un
Function ${un}WaitUntilFree
    ${DoWhile} ${FileExists} "$INSTDIR\*.*"
        Delete "$PLUGINSDIR\holders.txt"
        System::Call 'kernel32::GetCurrentProcessId() i .R0'
        nsExec::ExecToStack '"$PLUGINSDIR\ghosthand.exe" holders "$INSTDIR" --output "$PLUGINSDIR\holders.txt" $R0'
        Pop $0
        Pop $1
        ${If} $0 == 0
            Return
        ${EndIf}
        ; In UTF-16 behind its mark.
        StrCpy $2 ""
        ClearErrors
        FileOpen $R0 "$PLUGINSDIR\holders.txt" r
        ${Unless} ${Errors}
            FileReadWord $R0 $1
            ${Do}
                FileReadUTF16LE $R0 $1
                ${If} ${Errors}
                    ${Break}
                ${EndIf}
                StrCpy $2 "$2$1"
            ${Loop}
            FileClose $R0
        ${EndUnless}
        ${If} $2 == ""
            StrCpy $0 "It cannot be found out which programs use $INSTDIR ($0). Nothing has changed."
            StrCpy $1 2
            Call ${un}Fail
        ${EndIf}
        StrCpy $0 "These programs use files in $INSTDIR:$\r$\n$2"
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$0$\r$\nClose them, then go on with Retry. Nothing has \
            changed so far." /SD IDCANCEL IDRETRY again
        SetErrorLevel 1
        ${If} ${Silent}
            StrCpy $0 "$0Close them, then start again. Nothing has changed."
            StrCpy $1 3
            Call ${un}Fail
        ${EndIf}
        Quit
        again:
    ${Loop}
FunctionEnd
!macroend
!insertmacro WaitUntilFree ""
!insertmacro WaitUntilFree "un."

!macro FindUserOption un
Function ${un}FindUserOption
    StrCpy $UserOption ""
    ${If} $MultiUser.InstallMode == "CurrentUser"
        StrCpy $UserOption " --user"
    ${EndIf}
FunctionEnd
!macroend
!insertmacro FindUserOption ""
!insertmacro FindUserOption "un."

; Push the arguments. Gives the exit code in $0 and what the tool said in $1.
!macro RunTool un
Function ${un}RunTool
    Exch $0
    nsExec::ExecToStack '"$PLUGINSDIR\ghosthand.exe" $0'
    Pop $0
    Pop $1
    Pop $R0
    DetailPrint $1
FunctionEnd
!macroend
!insertmacro RunTool ""
!insertmacro RunTool "un."

; Registers what was registered before this installation, or removes the registration; one of another file stays.
; Results as those of RunTool.
!macro RestoreRegistration un
Function ${un}RestoreRegistration
    ReadRegStr $R1 SHCTX "${SETTINGS}" "PreviousServer"
    ReadRegStr $R2 SHCTX "${SERVER_KEY}" ""
    ${If} $R2 == "$INSTDIR\ghosthand.dll"
    ${AndIf} $R1 != ""
    ${AndIf} ${FileExists} $R1
        Push 'register$UserOption "$R1"'
    ${Else}
        Push 'unregister$UserOption "$INSTDIR\ghosthand.dll"'
    ${EndIf}
    Call ${un}RunTool
FunctionEnd
!macroend
!insertmacro RestoreRegistration ""
!insertmacro RestoreRegistration "un."

; The folders that the installation has made, those that are empty.
!macro RemoveFolders un
Function ${un}RemoveFolders
    ${If} $FirstFolder != ""
        StrCpy $R0 $INSTDIR
        ${DoUntil} $R0 == ""
            RMDir $R0
            ${If} $R0 == $FirstFolder
                ${Break}
            ${EndIf}
            ${GetParent} $R0 $R0
        ${Loop}
    ${EndIf}
FunctionEnd

Function ${un}RemoveSettings
    DeleteRegKey SHCTX "${SETTINGS}"
    ${GetParent} "${SETTINGS}" $R0
    DeleteRegKey /ifempty SHCTX $R0
FunctionEnd
!macroend
!insertmacro RemoveFolders ""
!insertmacro RemoveFolders "un."

; For each file of a list, whose name is in $R5.
!macro ForEachListed LIST
    ClearErrors
    FileOpen $R4 "${LIST}" r
    ${Unless} ${Errors}
        ${Do}
            ClearErrors
            FileRead $R4 $R5
            ${If} ${Errors}
                ${Break}
            ${EndIf}
            ${TrimNewLines} $R5 $R5
!macroend
!macro EndForEachListed
        ${Loop}
        FileClose $R4
    ${EndUnless}
!macroend

; Push the list, the folder from which and the one to which its files move. What is not there, or is at its place
; already, stays. $Stuck: the first that could not be moved.
Function MoveListed
    Pop $R2
    Pop $R1
    Pop $R0
    !insertmacro ForEachListed $R0
        ${If} ${FileExists} "$R1\$R5"
        ${AndIfNot} ${FileExists} "$R2\$R5"
            ${GetParent} "$R2\$R5" $R6
            CreateDirectory $R6
            ClearErrors
            Rename "$R1\$R5" "$R2\$R5"
            ${If} ${Errors}
                StrCpy $Stuck $R5
                ${Break}
            ${EndIf}
        ${EndIf}
    !insertmacro EndForEachListed
FunctionEnd

Function un.DeleteListed
    Pop $R0
    !insertmacro ForEachListed $R0
        SetFileAttributes "$INSTDIR\$R5" NORMAL
        Delete "$INSTDIR\$R5"
    !insertmacro EndForEachListed
FunctionEnd

; Push a list: the folders of its files go, those that are empty.
!macro RemoveEmptyFolders un
Function ${un}RemoveEmptyFolders
    Pop $R0
    !insertmacro ForEachListed $R0
        ${GetParent} $R5 $R6
        ${DoWhile} $R6 != ""
            RMDir "$INSTDIR\$R6"
            ${GetParent} $R6 $R6
        ${Loop}
    !insertmacro EndForEachListed
FunctionEnd
!macroend
!insertmacro RemoveEmptyFolders ""
!insertmacro RemoveEmptyFolders "un."
