list(APPEND VOREL_ROUTINES
  store/designfields.cpp
  store/designs.cpp
  store/designs_accounts.cpp
  store/designs_contacts.cpp
  store/designs_sections.cpp
  store/firstrows.cpp
  store/rebuild.cpp
  store/samples.cpp
  store/startreport.cpp
  store/suspects.cpp
  store/tablecopy.cpp
  store/upgrade.cpp
  store/version.cpp)
