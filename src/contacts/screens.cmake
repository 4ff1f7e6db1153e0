list(APPEND VOREL_SCREENS
  contacts/frmInfoCard.cpp
  contacts/frmLabelSheet.cpp
  contacts/frmLabels.cpp
  contacts/frmPrintAddressBook.cpp)
