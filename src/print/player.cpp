#include "print/player.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/error.h"
#include "platform/basic/prompts.h"
#include "platform/printer/printer.h"
#include "print/playercommands.h"
#include "print/script.h"

#include <QCursor>
#include <QGuiApplication>
#include <cmath>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

struct Player {
    PlayerState state;
    PrintScriptFile script;
    std::vector<QString> table;
    std::function<std::unique_ptr<PreviewScreen>()> maker;
    std::unique_ptr<PreviewScreen> screen;
};

Player &player()
{
    static Player one;
    return one;
}

PlayTarget targetOf(const QString &name)
{
    if (name == u"PRINTER")
        return PlayTarget::Printer;
    return name == u"SCREEN" ? PlayTarget::Screen : PlayTarget::Email;
}

void positionOnScreen()
{
    PlayerState &state = player().state;
    if (PreviewScreen *screen = preview()) {
        screen->setPageLabel(u"Page %1 of %2"_s.arg(state.CurrentPage + 1).arg(state.TotalPages));
        screen->ClearPage();
    }
    player().script.seekPage(state.CurrentPage);
}

void positionForPrinter()
{
    PlayerState &state = player().state;
    state.FirstPrintPage = std::max(state.FirstPrintPage, 1);
    player().script.seekPage(state.FirstPrintPage - 1);
    if (state.LastPrintPage > state.TotalPages || state.LastPrintPage < state.FirstPrintPage)
        state.LastPrintPage = state.TotalPages;
}

// A pass that fails leaves no half job behind.
struct JobGuard {
    ~JobGuard()
    {
        if (printer::thePrinter().isPrinting())
            printer::thePrinter().KillDoc();
    }
};

void copyDrawing(const printer::Page &from, printer::Page &to)
{
    to.DrawMode = from.DrawMode;
    to.DrawStyle = from.DrawStyle;
    to.DrawWidth = from.DrawWidth;
    to.FillColor = from.FillColor;
    to.FillStyle = from.FillStyle;
    to.FontTransparent = from.FontTransparent;
    to.setFontName(from.FontName());
    to.setFontSize(from.FontSize());
    to.setFontBold(from.FontBold());
    to.setScaleMode(from.ScaleMode());
}

}

PlayerState &playerState()
{
    return player().state;
}

void setPreviewMaker(std::function<std::unique_ptr<PreviewScreen>()> maker)
{
    player().maker = std::move(maker);
}

PreviewScreen *preview()
{
    return player().screen.get();
}

void showHourglass(bool on)
{
    static bool shown = false;
    if (on == shown || !qGuiApp)
        return;
    shown = on;
    if (on)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

bool PrinterReady()
{
    if (printer::thePrinter().ScaleWidth() > 0)
        return true;
    basic::MsgBox(u"There is an error communicating with the Printer"_s, {}, basic::Icon::Exclamation);
    return false;
}

// Portrait fills the width of the screen, landscape is 1.8 times its free height, so that it scrolls both ways.
void sizePreviewPage()
{
    PreviewScreen *screen = preview();
    if (!screen)
        return;
    const printer::Printer &paper = printer::thePrinter();
    const double before = player().state.PreviewScale;
    double width = screen->ScreenWidth() - 350;
    if (paper.Orientation() == printer::Landscape)
        width = (screen->ScreenHeight() - screen->ControlHeight() - 400) * 1.8 * paper.Width() / paper.Height();
    player().state.PreviewScale = std::max(width * screen->Zoom / paper.Width(), 0.05);
    printer::Page &page = screen->Page();
    page.setPaper(paper.paper().scaled(player().state.PreviewScale));
    page.setOrientation(paper.Orientation());
    // A size that an earlier page left behind grows with the page.
    page.setFontSize(page.FontSize() * player().state.PreviewScale / before);
    screen->PageSized();
}

void InitPage()
{
    printer::Printer &paper = printer::thePrinter();
    paper.DrawMode = 13;
    paper.DrawStyle = 0;
    paper.DrawWidth = 1;
    paper.FillColor = 0;
    paper.FillStyle = 1;
    paper.setFontName(u"Times New Roman"_s);
    paper.setFontSize(10);
    paper.setFontBold(false);
    paper.FontTransparent = true;
    paper.setScaleMode(printer::Twips);
    paper.Copies = 1;
    PlayerState &state = player().state;
    state.FirstPrintPage = 1;
    state.LastPrintPage = 0;
    state.PageOffsetX = state.PageOffsetY = 0;
    sizePreviewPage();
    if (preview())
        copyDrawing(paper, preview()->Page());
}

void RunPrintScript(const QString &name, const std::vector<QString> &table, const QString &target)
{
    struct Closing {
        ~Closing()
        {
            if (player().screen)
                ClosePreview();
            player().script.close();
            player().screen.reset();
        }
    };
    Player &p = player();
    p.script.close();
    const Closing closing;
    if (targetOf(target) == PlayTarget::Screen && p.maker)
        p.screen = p.maker();
    InitPage();
    p.table = table;
    printer::thePrinter().documentTitle = scriptState().PreviewCaption;
    if (name.isEmpty() || !p.script.open(name))
        return;
    p.state.TotalPages = p.script.pages();
    p.state.CurrentPage = 0;
    PlayScript(target);
    if (p.screen)
        p.screen->ShowModal();
}

void PlayScript(const QString &targetName)
{
    Player &p = player();
    const Hourglass hourglass;
    const PlayTarget target = targetOf(targetName);
    if (target == PlayTarget::Screen)
        positionOnScreen();
    else if (target == PlayTarget::Printer)
        positionForPrinter();
    else
        p.script.seekPage(0);
    const JobGuard guard;
    ScriptPass(target, p.script, p.table).play();
    if (target == PlayTarget::Printer) {
        printer::Printer &paper = printer::thePrinter();
        const int mode = paper.ScaleMode();
        paper.EndDoc();
        paper.setScaleMode(mode);
    } else if (target == PlayTarget::Screen && p.screen) {
        p.screen->ShowPage();
    }
}

void MovePage(int index, const QString &txtPage)
{
    PlayerState &state = player().state;
    const int last = std::max(state.TotalPages - 1, 0);
    switch (index) {
    case 0:
        state.CurrentPage = 0;
        break;
    case 1:
        state.CurrentPage = std::max(state.CurrentPage - 1, 0);
        break;
    case 2:
        state.CurrentPage = std::min(state.CurrentPage + 1, last);
        break;
    case 3:
        state.CurrentPage = last;
        break;
    case 4:
        state.CurrentPage = static_cast<int>(std::clamp(scanNumber(txtPage) - 1, 0.0, static_cast<double>(last)));
        break;
    default:
        return;
    }
    PlayScript(u"SCREEN"_s);
}

void zoomPreview(double zoom)
{
    if (!preview())
        return;
    preview()->Zoom = std::clamp(zoom, 0.2, 2.5);
    sizePreviewPage();
    PlayScript(u"SCREEN"_s);
}

void ClosePreview()
{
    Player &p = player();
    printer::thePrinter().setCurrentX(0);
    printer::thePrinter().setCurrentY(0);
    const QString path = p.script.path();
    const bool wasOpen = p.script.isOpen();
    p.script.close();
    if (wasOpen && path.endsWith(u".TMP"_s, Qt::CaseInsensitive))
        QFile::remove(path);
    scriptState().ScriptFile = 0;
}

}
