list(APPEND VOREL_ROUTINES
  contacts/addresslist.cpp
  contacts/categories.cpp
  contacts/contactevents.cpp
  contacts/contactname.cpp
  contacts/infocard.cpp
  contacts/newcontact.cpp
  contacts/recordcase.cpp)
