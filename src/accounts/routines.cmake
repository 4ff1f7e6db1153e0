list(APPEND VOREL_ROUTINES
  accounts/accounts.cpp)
