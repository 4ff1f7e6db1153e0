list(APPEND VOREL_SCREENS print/frmPreview.cpp print/frmPreviewPage.cpp print/frmPreviewPages.cpp)
