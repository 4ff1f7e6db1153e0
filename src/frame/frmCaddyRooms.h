#pragma once

#include "frame/frmCaddy.h"
#include "frame/frmCaddyAlerts.h"
#include "frame/frmCaddyCells.h"
#include "frame/frmCaddyEdit.h"
#include "frame/frmCaddyLayout.h"
#include "frame/frmCaddyMenus.h"
#include "frame/frmCaddyPainting.h"
#include "frame/frmCaddySections.h"
#include "frame/frmCaddyStrip.h"
#include "frame/frmCaddyTips.h"

namespace vorel {

// The parts of the main screen, in the order in which they need one another.
struct frmCaddy::Rooms {
    explicit Rooms(frmCaddy &screen)
        : c(&screen), columns(sizes), painting(c, sizes, columns), search(c),
          sections(c, screen, sizes, columns, search), periods(c, screen), cells(c), edit(c, screen, &screen),
          menus(c, screen, periods, &screen), strip(c, screen), tips(c, [this] { edit.showDetails(); }),
          alerts(c, painting, edit, &screen, [this] { sections.fileIsBusy(); }) {}

    CaddyControls c;
    GridLayout sizes;
    CaddyColumns columns;
    CaddyPainting painting;
    CaddySearch search;
    CaddySections sections;
    CaddyPeriods periods;
    CaddyCells cells;
    CaddyEdit edit;
    CaddyMenus menus;
    CaddyStrip strip;
    CaddyTips tips;
    CaddyAlerts alerts;
};

}
