list(APPEND VOREL_SCREENS media/frmDataPath.cpp media/frmShowPic.cpp)
