list(APPEND VOREL_SCREENS session/frmColours.cpp)
