; The installer for Windows, x86-64; scripts/package.sh makes it with
;   makensis -DVERSION=1.0.0 -DSTAGE=folder -DREMOVAL=file -DOUT=installer.exe
; STAGE is what is installed, REMOVAL the commands that take exactly that away. "/S" asks nothing,
; "/D=C:\folder", last and without quotes, says where to. PATH stays as it is.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
Name "zelconvert ${VERSION}"
OutFile "${OUT}"
InstallDir "$PROGRAMFILES64\zelconvert"
RequestExecutionLevel admin
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName zelconvert
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Converter for land-survey field data"
VIAddVersionKey LegalCopyright "the zelconvert authors, MIT License"

LicenseData "${STAGE}\LICENSE.txt"
Page license
Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\zelconvert"

Section
  SetRegView 64
  ; A version that is there goes first, since the new one may lack files that it has. Told by "_?" where it
  ; is, it is waited for, and leaves itself.
  ReadRegStr $0 HKLM "${KEY}" InstallLocation
  IfFileExists "$0\uninstall.exe" 0 none
    ExecWait '"$0\uninstall.exe" /S _?=$0'
    Delete "$0\uninstall.exe"
    RMDir $0
  none:
  SetOutPath $INSTDIR
  File /r "${STAGE}\*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKLM "${KEY}" DisplayName zelconvert
  WriteRegStr HKLM "${KEY}" DisplayVersion "${VERSION}"
  WriteRegStr HKLM "${KEY}" Publisher "the zelconvert authors"
  WriteRegStr HKLM "${KEY}" InstallLocation $INSTDIR
  WriteRegStr HKLM "${KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKLM "${KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKLM "${KEY}" NoModify 1
  WriteRegDWORD HKLM "${KEY}" NoRepair 1
SectionEnd

Section Uninstall
  SetRegView 64
  !include "${REMOVAL}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir $INSTDIR ; only if empty: what others have put there stays
  DeleteRegKey HKLM "${KEY}"
SectionEnd
