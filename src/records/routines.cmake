list(APPEND VOREL_ROUTINES records/recordtree.cpp records/viewpage.cpp records/inventory.cpp)
