list(APPEND VOREL_SCREENS
  contacts/frmCategories.cpp
  contacts/frmContacts.cpp
  contacts/frmContactsDates.cpp
  contacts/frmEdit.cpp
  contacts/frmInfoCard.cpp
  contacts/frmLabelSheet.cpp
  contacts/frmLabels.cpp
  contacts/frmNewContact.cpp
  contacts/frmPrintAddressBook.cpp)
