list(APPEND VOREL_ROUTINES records/viewpage.cpp records/inventory.cpp)
list(APPEND VOREL_ROUTINES records/recordrows.cpp records/webaddress.cpp)
