list(APPEND VOREL_SCREENS utilities/frmInformation.cpp utilities/frmInformationFormat.cpp)
