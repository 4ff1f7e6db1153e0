list(APPEND VOREL_ROUTINES media/allotment.cpp media/filesearch.cpp media/picturerows.cpp media/pictureeditor.cpp media/pictures.cpp)
