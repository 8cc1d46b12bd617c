; What the installer says, in both languages; Windows' own language chooses.
!macro Text NAME ENGLISH GREEK
  LangString ${NAME} ${LANG_ENGLISH} `${ENGLISH}`
  LangString ${NAME} ${LANG_GREEK} `${GREEK}`
!macroend

!insertmacro Text ForMachine \
  "vmGridViews will be there for all users of this computer." \
  "Το vmGridViews θα είναι διαθέσιμο σε όλους τους χρήστες του υπολογιστή."
!insertmacro Text ForUser \
  "vmGridViews will be there for you alone. To install it for all users of this computer, start the installer as an administrator." \
  "Το vmGridViews θα είναι διαθέσιμο μόνο σε εσάς. Για όλους τους χρήστες του υπολογιστή, ξεκινήστε την εγκατάσταση ως διαχειριστής."
!insertmacro Text Bits64 "For programs of 64 bits" "Για εφαρμογές 64 bit"
!insertmacro Text Bits32 "For programs of 32 bits" "Για εφαρμογές 32 bit"
!insertmacro Text ChooseWidth \
  "Choose the programs that vmGridViews is to serve." \
  "Επιλέξτε ποιες εφαρμογές θα εξυπηρετεί το vmGridViews."
!insertmacro Text InUse \
  "$Old\$R9 is in use, or may not be changed. Close the programs that use vmGridViews, then try again. Nothing has been changed." \
  "Το αρχείο $Old\$R9 χρησιμοποιείται ή δεν επιτρέπεται να αλλάξει. Κλείστε τις εφαρμογές που χρησιμοποιούν το vmGridViews και δοκιμάστε ξανά. Τίποτα δεν έχει αλλάξει."
!insertmacro Text CannotWrite \
  "The files could not be written to $INSTDIR. The disk may be full, or the folder protected. All is as it was before." \
  "Τα αρχεία δεν μπόρεσαν να γραφτούν στον φάκελο $INSTDIR. Ίσως ο δίσκος είναι γεμάτος ή ο φάκελος προστατεύεται. Όλα έμειναν όπως ήταν."
!insertmacro Text CannotRegister \
  "$Base\$Width\$Library could not be registered (regsvr32: $0). All is as it was before." \
  "Το αρχείο $Base\$Width\$Library δεν μπόρεσε να καταχωριστεί (regsvr32: $0). Όλα έμειναν όπως ήταν."
!insertmacro Text CannotUnregister \
  "The registration of $Base\$Width\$Library could not be taken out (regsvr32: $0). Run the installer once more, which repairs it, then uninstall." \
  "Η καταχώριση του αρχείου $Base\$Width\$Library δεν μπόρεσε να αναιρεθεί (regsvr32: $0). Εκτελέστε ξανά την εγκατάσταση, που την επιδιορθώνει, και μετά απεγκαταστήστε."
!insertmacro Text NoHelp \
  "The help file could not be written to the folder $0, which is set for the help of all programs. The Help buttons will not find it." \
  "Το αρχείο βοήθειας δεν μπόρεσε να γραφτεί στον φάκελο $0, που έχει οριστεί για τη βοήθεια όλων των εφαρμογών. Τα κουμπιά «Βοήθεια» δεν θα το βρίσκουν."
!insertmacro Text Newer \
  "A newer version, $OldVersion, is installed. Uninstall it before you install ${VERSION}." \
  "Είναι εγκατεστημένη μια νεότερη έκδοση, η $OldVersion. Απεγκαταστήστε την πριν εγκαταστήσετε την ${VERSION}."
!insertmacro Text WrongWindows \
  "This installer is for a Windows of 32 bits. The one for 64 bits (win64) brings the libraries of 32 bits too." \
  "Αυτή η εγκατάσταση είναι για Windows 32 bit. Η εγκατάσταση για 64 bit (win64) περιέχει και τις βιβλιοθήκες 32 bit."
!insertmacro Text NoRights \
  "vmGridViews is installed for all users of this computer. Only an administrator can uninstall it." \
  "Το vmGridViews είναι εγκατεστημένο για όλους τους χρήστες του υπολογιστή. Μόνο ένας διαχειριστής μπορεί να το απεγκαταστήσει."
