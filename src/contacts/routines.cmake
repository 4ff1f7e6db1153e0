list(APPEND VOREL_ROUTINES contacts/addresslist.cpp contacts/infocard.cpp)
