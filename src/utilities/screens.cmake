list(APPEND VOREL_SCREENS utilities/frmCalculator.cpp utilities/frmInformation.cpp utilities/frmInformationFormat.cpp)
