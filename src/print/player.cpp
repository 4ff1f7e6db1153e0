#include "print/player.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/error.h"
#include "platform/basic/prompts.h"
#include "platform/desktop/hourglass.h"
#include "platform/printer/printer.h"
#include "print/playercommands.h"
#include "print/script.h"

#include <QCursor>
#include <QGuiApplication>
#include <map>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

// Values of Page::DrawMode and FillStyle that scripts start with.
constexpr int drawCopying = 13;             // what is drawn covers what was there
constexpr int drawSolid = 0;
constexpr int fillNothing = 1;

// The page on the screen at zoom 1. Upright it is as wide as the screen but for the scroll bar and the borders; lying it is
// larger than the free height, so that its small print can be read, and scrolls both ways.
constexpr double besideUprightPage = 350;   // twips
constexpr double belowLyingPage = 400;      // twips
constexpr double lyingEnlargement = 1.8;    // of the size that fits the height
constexpr double smallestScale = 0.05;      // of a window too small for a page
constexpr double smallestZoom = 0.2, largestZoom = 2.5;

std::function<std::unique_ptr<PreviewScreen>(PrintJob &)> &previewMaker()
{
    static std::function<std::unique_ptr<PreviewScreen>(PrintJob &)> maker;
    return maker;
}

PlayTarget targetOf(const QString &name)
{
    if (name == u"PRINTER")
        return PlayTarget::Printer;
    return name == u"SCREEN" ? PlayTarget::Screen : PlayTarget::Email;
}

// A pass that fails leaves no half job behind.
struct JobGuard {
    printer::Printer &device;
    ~JobGuard()
    {
        if (device.isPrinting())
            device.KillDoc();
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

void setPreviewMaker(std::function<std::unique_ptr<PreviewScreen>(PrintJob &)> maker)
{
    previewMaker() = std::move(maker);
}

void showHourglass(bool on)
{
    static std::optional<desktop::Hourglass> shown;
    if (on == shown.has_value() || !qGuiApp)
        return;
    if (on)
        shown.emplace();
    else
        shown.reset();
}

bool PrinterReady()
{
    if (printer::Printer().ScaleWidth() > 0)
        return true;
    basic::MsgBox(u"There is an error communicating with the Printer"_s, {}, basic::Icon::Exclamation);
    return false;
}

void PrintPlayer::positionOnScreen()
{
    if (m_preview) {
        m_preview->setPageLabel(u"Page %1 of %2"_s.arg(CurrentPage + 1).arg(TotalPages));
        m_preview->ClearPage();
    }
    m_script.seekPage(CurrentPage);
}

void PrintPlayer::positionForPrinter()
{
    FirstPrintPage = std::max(FirstPrintPage, 1);
    m_script.seekPage(FirstPrintPage - 1);
    if (LastPrintPage > TotalPages || LastPrintPage < FirstPrintPage)
        LastPrintPage = TotalPages;
}

void PrintPlayer::sizePreviewPage()
{
    if (!m_preview)
        return;
    const printer::Printer &paper = m_job.device();
    const double before = PreviewScale;
    double width = m_preview->ScreenWidth() - besideUprightPage;
    if (paper.Orientation() == printer::Landscape) {
        const double height = (m_preview->ScreenHeight() - m_preview->ControlHeight() - belowLyingPage) * lyingEnlargement;
        width = height * paper.Width() / paper.Height();
    }
    PreviewScale = std::max(width * m_preview->Zoom / paper.Width(), smallestScale);
    printer::Page &page = m_preview->Page();
    page.setPaper(paper.paper().scaled(PreviewScale));
    page.setOrientation(paper.Orientation());
    // A size that an earlier page left behind grows with the page.
    page.setFontSize(page.FontSize() * PreviewScale / before);
    m_preview->PageSized();
}

// Offsets from the printer's margin in the units of a scale mode. The page leaves the margin out already, so it counts as
// nothing here, and so do they.
void PrintPlayer::recomputeOffsets(int scaleMode)
{
    constexpr double printerPixels = 0;
    struct Factor { double x, y; };
    static constexpr double t = printer::twipsPerPixel;
    static const std::map<int, Factor> factors{
        {1, {t, t}}, {2, {t * 72 / 1440, t * 72 / 1440}}, {3, {1, 1}}, {4, {t / 120, t / 240}}, {5, {t / 1440, t / 1440}},
        {6, {t / 56.7, t / 56.7}}, {7, {t / 567, t / 567}}};
    const auto found = factors.find(scaleMode);
    if (found == factors.end())
        return;
    PageOffsetX = found->second.x * printerPixels;
    PageOffsetY = found->second.y * printerPixels;
}

void PrintPlayer::InitPage()
{
    printer::Printer &paper = m_job.device();
    paper.DrawMode = drawCopying;
    paper.DrawStyle = drawSolid;
    paper.DrawWidth = 1;
    paper.FillColor = 0;
    paper.FillStyle = fillNothing;
    paper.setFontName(u"Times New Roman"_s);
    paper.setFontSize(10);
    paper.setFontBold(false);
    paper.FontTransparent = true;
    paper.setScaleMode(printer::Twips);
    paper.Copies = 1;
    FirstPrintPage = 1;
    LastPrintPage = 0;
    PageOffsetX = PageOffsetY = 0;
    sizePreviewPage();
    if (m_preview)
        copyDrawing(paper, m_preview->Page());
}

void PrintPlayer::RunPrintScript(const QString &name, const std::vector<QString> &table, const QString &target)
{
    struct Closing {
        PrintPlayer &player;
        ~Closing()
        {
            if (player.m_preview)
                player.ClosePreview();
            player.m_script.close();
            player.m_preview.reset();
        }
    };
    m_script.close();
    const Closing closing{*this};
    if (targetOf(target) == PlayTarget::Screen && previewMaker())
        m_preview = previewMaker()(m_job);
    InitPage();
    m_table = table;
    m_job.device().documentTitle = m_job.PreviewCaption;
    if (name.isEmpty() || !m_script.open(name))
        return;
    TotalPages = m_script.pages();
    CurrentPage = 0;
    PlayScript(target);
    if (m_preview)
        m_preview->ShowModal();
}

void PrintPlayer::PlayScript(const QString &targetName)
{
    const Hourglass hourglass;
    const PlayTarget target = targetOf(targetName);
    if (target == PlayTarget::Screen)
        positionOnScreen();
    else if (target == PlayTarget::Printer)
        positionForPrinter();
    else
        m_script.seekPage(0);
    printer::Printer &paper = m_job.device();
    const JobGuard guard{paper};
    ScriptPass(target, m_job, m_script, m_table).play();
    if (target == PlayTarget::Printer) {
        const int mode = paper.ScaleMode();
        paper.EndDoc();
        paper.setScaleMode(mode);
    } else if (target == PlayTarget::Screen && m_preview) {
        m_preview->ShowPage();
    }
}

void PrintPlayer::MovePage(int index, const QString &txtPage)
{
    const int last = std::max(TotalPages - 1, 0);
    switch (index) {
    case 0:
        CurrentPage = 0;
        break;
    case 1:
        CurrentPage = std::max(CurrentPage - 1, 0);
        break;
    case 2:
        CurrentPage = std::min(CurrentPage + 1, last);
        break;
    case 3:
        CurrentPage = last;
        break;
    case 4:
        CurrentPage = static_cast<int>(std::clamp(scanNumber(txtPage) - 1, 0.0, static_cast<double>(last)));
        break;
    default:
        return;
    }
    PlayScript(u"SCREEN"_s);
}

void PrintPlayer::zoomPreview(double zoom)
{
    if (!m_preview)
        return;
    m_preview->Zoom = std::clamp(zoom, smallestZoom, largestZoom);
    sizePreviewPage();
    PlayScript(u"SCREEN"_s);
}

void PrintPlayer::ClosePreview()
{
    m_job.SetCurrentX(0);
    m_job.SetCurrentY(0);
    const QString path = m_script.path();
    const bool wasOpen = m_script.isOpen();
    m_script.close();
    if (wasOpen && path.endsWith(u".TMP"_s, Qt::CaseInsensitive))
        QFile::remove(path);
}

}
