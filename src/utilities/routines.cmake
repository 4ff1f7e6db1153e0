list(APPEND VOREL_ROUTINES utilities/hints.cpp utilities/infopages.cpp)
