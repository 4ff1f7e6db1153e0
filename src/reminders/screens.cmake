list(APPEND VOREL_SCREENS reminders/frmRecord.cpp reminders/frmRecordFields.cpp reminders/frmRecordFrequency.cpp
  reminders/frmRecordLayout.cpp reminders/frmRecordReposition.cpp reminders/frmRecordSave.cpp
  reminders/frmMessage.cpp)
qt_add_resources(VOREL_SCREENS ${PROJECT_SOURCE_DIR}/resources/resources.qrc)
