list(APPEND VOREL_ROUTINES utilities/calculator.cpp utilities/conversions.cpp utilities/hints.cpp utilities/infopages.cpp)
