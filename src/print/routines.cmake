list(APPEND VOREL_ROUTINES
  print/script.cpp
  print/scripttext.cpp
  print/scriptfile.cpp
  print/player.cpp
  print/playercommands.cpp
  print/output.cpp
  print/report.cpp
  print/listreport.cpp
  print/listwriter.cpp
  print/fittedtext.cpp
  print/labels.cpp
  print/envelope.cpp
  print/addressbook.cpp
  print/monthcalendar.cpp
  print/yearcalendar.cpp
  print/lists.cpp)
