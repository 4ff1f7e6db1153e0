list(APPEND VOREL_SCREENS records/frmRecordTree.cpp)
