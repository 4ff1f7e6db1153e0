list(APPEND VOREL_SCREENS
  frame/frmCaddy.cpp
  frame/frmCaddyAlerts.cpp
  frame/frmCaddyCells.cpp
  frame/frmCaddyColumns.cpp
  frame/frmCaddyEdit.cpp
  frame/frmCaddyGround.cpp
  frame/frmCaddyHead.cpp
  frame/frmCaddyIcons.cpp
  frame/frmCaddyInfo.cpp
  frame/frmCaddyLayout.cpp
  frame/frmCaddyMenus.cpp
  frame/frmCaddyPainting.cpp
  frame/frmCaddyPeriods.cpp
  frame/frmCaddyPicture.cpp
  frame/frmCaddyRail.cpp
  frame/frmCaddyScreens.cpp
  frame/frmCaddySearch.cpp
  frame/frmCaddySections.cpp
  frame/frmCaddyStrip.cpp
  frame/frmCaddyTips.cpp
  frame/frmCaddyWiring.cpp
  frame/frmLater.cpp
  frame/frmStartup.cpp
  frame/frmUnload.cpp
)
qt_add_resources(VOREL_SCREENS ${PROJECT_SOURCE_DIR}/resources/icons.qrc)
