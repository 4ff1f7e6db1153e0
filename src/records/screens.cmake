list(APPEND VOREL_SCREENS records/frmRecordTree.cpp records/frmChildGrid.cpp records/frmPictureSet.cpp)
list(APPEND VOREL_SCREENS
  records/frmBooks.cpp
  records/frmInventory.cpp
  records/frmMovies.cpp
  records/frmMusic.cpp
  records/frmSection.cpp
  records/frmSectionFields.cpp
  records/frmSectionLayout.cpp
  records/frmSectionPanel.cpp
  records/frmSectionWrite.cpp
)
