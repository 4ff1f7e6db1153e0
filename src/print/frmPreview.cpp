#include "print/frmPreview.h"

#include "platform/controls/layout.h"
#include "print/frmPreviewPage.h"
#include "print/frmPreviewPages.h"
#include "print/output.h"
#include "print/script.h"
#include "session/ini.h"

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QWheelEvent>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::button;
namespace layout = controls::layout;

namespace {

constexpr double pixel = printer::twipsPerPixel;
constexpr double pageMargin = 350;          // twips that the page leaves of the screen's width
constexpr double zoomStep = 1.2;
constexpr double fittedShare = 0.98;        // of the frame, so that the page's edges show

const QString zoomKey = u"PreviewZoom"_s;   // in the configuration file: "" for the player's size, a factor, or
const QString wholePage = u"page"_s;

// A magnifier of the program's own: the icon sets draw frames and arrows for zoom, which look like a window's size.
QString ownIcon(const QString &name)
{
    const bool isDark = QGuiApplication::palette().window().color().lightness() < 128;
    return (isDark ? u":/icons/dark/%1.svg"_s : u":/icons/%1.svg"_s).arg(name);
}

std::function<void(const QImage &)> &mailer()
{
    static std::function<void(const QImage &)> step;
    return step;
}

}

void frmPreview::install()
{
    setPreviewMaker([](PrintJob &job) { return std::make_unique<frmPreview>(job, QApplication::activeWindow()); });
}

void frmPreview::setMailer(std::function<void(const QImage &page)> step)
{
    mailer() = std::move(step);
}

frmPreview::frmPreview(PrintJob &job, QWidget *parent) : Form(u"frmPreview"_s, parent), m_job(job), m_player(job.player())
{
    setWindowTitle(job.PreviewCaption.isEmpty() ? tr("Print Preview") : job.PreviewCaption);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    Frame = new QWidget;
    Frame->setObjectName(u"Frame"_s);
    Frame->setMinimumSize(160, 120);
    Frame->setAutoFillBackground(true);
    Frame->setBackgroundRole(QPalette::Mid);
    m_page = new PreviewPageBox(Frame);
    HScroll1 = new QScrollBar(Qt::Horizontal);
    HScroll1->setObjectName(u"HScroll1"_s);
    HScroll1->setAccessibleName(tr("Scroll across"));
    HScroll1->setInvertedControls(false);       // Right goes right
    VScroll1 = new QScrollBar(Qt::Vertical);
    VScroll1->setObjectName(u"VScroll1"_s);
    VScroll1->setAccessibleName(tr("Scroll down"));
    for (QScrollBar *bar : {HScroll1, VScroll1}) {
        bar->setFocusPolicy(Qt::StrongFocus);
        controls::on(bar, &QScrollBar::valueChanged, this, [this] { placePage(); });
    }
    buildStrip();
    auto *grid = new QGridLayout;
    grid->setSpacing(0);
    grid->addWidget(Frame, 0, 0);
    grid->addWidget(VScroll1, 0, 1);
    grid->addWidget(HScroll1, 1, 0);
    grid->setRowStretch(0, 1);
    grid->setColumnStretch(0, 1);
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(PNL_Control);
    all->addLayout(grid);
    addKeys();
    const QSize room = screen()->availableSize();
    resize(room);
    setWindowState(Qt::WindowMaximized);
    all->activate();
    restoreZoom();
}

frmPreview::~frmPreview() = default;

void frmPreview::buildStrip()
{
    cmdPrint = button(u"cmdPrint"_s, u"&Print"_s, u"document-print"_s, tr("Print the pages"));
    QAbstractButton *cmdSetup = button(u"cmdSetup"_s, u"&Pages"_s, u"view-pages-single"_s, tr("Choose the pages and print them"));
    QAbstractButton *cmdBook = button(u"cmdBook"_s, u"&Book"_s, u"view-pages-facing"_s, tr("Print the odd pages, then the even ones"));
    QAbstractButton *cmdEmail = button(u"cmdEmail"_s, u"E&Mail"_s, u"mail-send"_s, tr("Send a picture of the page"));
    QAbstractButton *cmdPdf = button(u"cmdPdf"_s, u"Save as P&DF"_s, u"document-save-as"_s, tr("Keep all pages in a file"));
    QAbstractButton *cmdExit = button(u"cmdExit"_s, u"&Exit"_s, u"window-close"_s, tr("Close the preview"));
    const struct { const char *icon; QString tip; } moves[] = {
        {"go-first", tr("First page")}, {"go-previous", tr("Previous page")}, {"go-next", tr("Next page")}, {"go-last", tr("Last page")}};
    for (int index = 0; index < 4; ++index) {
        CMD_Move.push_back(button(u"CMD_Move(%1)"_s.arg(index), {}, QString::fromLatin1(moves[index].icon), moves[index].tip));
        controls::on(CMD_Move.back(), &QAbstractButton::clicked, this, [this, index] { turnTo(index); });
    }
    QAbstractButton *cmdZoomOut = button(u"cmdZoomOut"_s, {}, ownIcon(u"magnifier-minus"_s), tr("Smaller"));
    QAbstractButton *cmdFit = button(u"cmdFit"_s, {}, ownIcon(u"magnifier-page"_s), tr("The whole page"));
    QAbstractButton *cmdZoomIn = button(u"cmdZoomIn"_s, {}, ownIcon(u"magnifier-plus"_s), tr("Larger"));
    txtPage = new QLineEdit;
    txtPage->setObjectName(u"txtPage"_s);
    txtPage->setAccessibleName(tr("Page to show"));
    txtPage->setAlignment(Qt::AlignCenter);
    txtPage->setFixedWidth(56);
    LBL_Page = new QLabel;
    LBL_Page->setObjectName(u"LBL_Page"_s);
    m_chosen = new QLabel;
    m_chosen->setObjectName(u"lblChosen"_s);
    m_chosen->hide();
    PNL_Control = new QWidget;
    PNL_Control->setObjectName(u"PNL_Control"_s);
    QLayout *row = layout::Row({cmdPrint, m_chosen, cmdSetup, cmdBook, cmdEmail, cmdPdf, layout::Stretch{}, CMD_Move[0], CMD_Move[1], txtPage,
                                LBL_Page, CMD_Move[2], CMD_Move[3], layout::Stretch{}, cmdZoomOut, cmdFit, cmdZoomIn, cmdExit});
    layout::setMargins(row, layout::unit);
    PNL_Control->setLayout(row);

    cmdEmail->setVisible(!m_job.MailRecipient.trimmed().isEmpty() && !m_job.hideEmail && mailer());
    controls::on(cmdPrint, &QAbstractButton::clicked, this, [this] { print(); });
    controls::on(cmdSetup, &QAbstractButton::clicked, this, [this] { cmdSetup_Click(); });
    controls::on(cmdBook, &QAbstractButton::clicked, this, [this] {
        printBooklet(m_job);
        showChosenPages();
    });
    controls::on(cmdEmail, &QAbstractButton::clicked, this, [this] { cmdEmail_Click(); });
    controls::on(cmdPdf, &QAbstractButton::clicked, this, [this] { savePdf(m_job); });
    controls::on(cmdExit, &QAbstractButton::clicked, this, [this] { Close(); });
    controls::on(cmdZoomOut, &QAbstractButton::clicked, this, [this] { zoomTo(Zoom / zoomStep); });
    controls::on(cmdFit, &QAbstractButton::clicked, this, [this] { fitPage(); });
    controls::on(cmdZoomIn, &QAbstractButton::clicked, this, [this] { zoomTo(Zoom * zoomStep); });
    controls::on(txtPage, &QLineEdit::textChanged, this, [this](const QString &text) { m_player.MovePage(4, text); });
    // What was typed was held within the pages: the box says which one is shown.
    controls::on(txtPage, &QLineEdit::editingFinished, this, [this] { showPageNumber(); });
}

void frmPreview::addKeys()
{
    const auto on = [this](const QKeySequence &key, std::function<void()> step) {
        controls::on(new QShortcut(key, this), &QShortcut::activated, this, std::move(step));
    };
    on(Qt::CTRL | Qt::Key_P, [this] { print(); });
    on(Qt::CTRL | Qt::Key_S, [this] { savePdf(m_job); });
    on(Qt::CTRL | Qt::Key_Home, [this] { turnTo(0); });
    on(Qt::CTRL | Qt::Key_PageUp, [this] { turnTo(1); });
    on(Qt::CTRL | Qt::Key_PageDown, [this] { turnTo(2); });
    on(Qt::CTRL | Qt::Key_End, [this] { turnTo(3); });
    on(Qt::CTRL | Qt::Key_Plus, [this] { zoomTo(Zoom * zoomStep); });
    on(Qt::CTRL | Qt::Key_Equal, [this] { zoomTo(Zoom * zoomStep); });
    on(Qt::CTRL | Qt::Key_Minus, [this] { zoomTo(Zoom / zoomStep); });
    on(Qt::CTRL | Qt::Key_0, [this] { zoomTo(1); });
    for (QWidget *control : findChildren<QWidget *>())
        control->installEventFilter(this);
    installEventFilter(this);           // where no control has the keyboard
}

printer::Page &frmPreview::Page()
{
    return m_page->page();
}

// So that an upright page just fits between the frame's borders.
double frmPreview::ScreenWidth() const
{
    return Frame->width() * pixel + pageMargin - layout::unit * pixel;
}

double frmPreview::ScreenHeight() const
{
    return height() * pixel;
}

double frmPreview::ControlHeight() const
{
    return PNL_Control->height() * pixel;
}

void frmPreview::PageSized()
{
    m_page->sizeToPage();
}

void frmPreview::ClearPage()
{
    m_page->clear();
}

void frmPreview::setPageLabel(const QString &text)
{
    LBL_Page->setText(text);
    m_page->setAccessibleDescription(text);
    const int page = m_player.CurrentPage;
    const bool isTyped = txtPage->hasFocus();
    const QWidget *active = focusWidget();
    CMD_Move[0]->setEnabled(page > 0);
    CMD_Move[1]->setEnabled(page > 0);
    CMD_Move[2]->setEnabled(page + 1 < m_player.TotalPages);
    CMD_Move[3]->setEnabled(page + 1 < m_player.TotalPages);
    if (active && !active->isEnabled())
        VScroll1->setFocus();           // the next control in order is the box with the number
    if (!isTyped)                       // a number that is being typed stays as it is
        showPageNumber();
}

void frmPreview::showPageNumber()
{
    const QSignalBlocker quiet(txtPage);
    txtPage->setText(QString::number(m_player.CurrentPage + 1));
}

void frmPreview::ShowPage()
{
    m_page->finish();
    m_page->show();
    m_player.VScrollShown = true;
    m_player.HScrollShown = Page().Orientation() == printer::Landscape || m_page->width() > Frame->width();
    LayoutPreview();
    const auto range = [](QScrollBar *bar, int page, int frame) {
        const QSignalBlocker quiet(bar);
        bar->setRange(0, std::max(0, static_cast<int>((page - frame) * pixel)));
        bar->setSingleStep(static_cast<int>(page * pixel / 60));
        bar->setPageStep(static_cast<int>(frame * pixel));
        bar->setValue(0);
    };
    range(HScroll1, m_page->width(), Frame->width());
    range(VScroll1, m_page->height(), Frame->height());
    placePage();
    m_page->update();
}

void frmPreview::LayoutPreview()
{
    VScroll1->setVisible(m_player.VScrollShown);
    HScroll1->setVisible(m_player.HScrollShown);
    layout()->activate();
}

// Twips of the scroll bars to pixels; a page smaller than the frame is centred.
void frmPreview::placePage()
{
    const auto place = [](const QScrollBar *bar, int page, int frame) {
        return page < frame ? (frame - page) / 2 : -static_cast<int>(bar->value() / pixel);
    };
    m_page->move(place(HScroll1, m_page->width(), Frame->width()), place(VScroll1, m_page->height(), Frame->height()));
}

void frmPreview::ShowModal()
{
    cmdPrint->setFocus();
    if (m_isFitted || m_job.fitsPreview)
        fitPage();
    Form::ShowModal();
}

void frmPreview::Unload()
{
    keepZoom();
    m_player.ClosePreview();
}

void frmPreview::restoreZoom()
{
    m_keptZoom = GetIniValue(iniSettings, zoomKey, {});
    m_isFitted = m_keptZoom == wholePage;
    const double zoom = scanNumber(m_keptZoom);
    if (zoom > 0)
        Zoom = zoom;
}

void frmPreview::keepZoom()
{
    if (m_job.fitsPreview)
        return;
    const QString zoom = m_isFitted ? wholePage : Zoom == 1 ? QString() : scriptNumber(Zoom);
    if (zoom != m_keptZoom)             // in a folder that cannot be written the next preview just opens as this one did
        tryPutIniValue(iniSettings, zoomKey, zoom);
}

void frmPreview::print()
{
    printPages(m_job);
}

void frmPreview::showChosenPages()
{
    const QString pages = chosenPages(m_job);
    m_chosen->setText(pages);
    m_chosen->setVisible(!pages.isEmpty());
    cmdPrint->setToolTip(pages.isEmpty() ? tr("Print the pages") : tr("Print %1").arg(pages));
    cmdPrint->setAccessibleDescription(cmdPrint->toolTip());
}

// The page takes the size that the window leaves it.
void frmPreview::resizeEvent(QResizeEvent *event)
{
    Form::resizeEvent(event);
    if (isVisible() && m_player.TotalPages > 0)
        basic::Trap([this] { m_isFitted ? fitPage() : zoomTo(Zoom); });
}

void frmPreview::turnTo(int index)
{
    if (txtPage->hasFocus())
        VScroll1->setFocus();           // a number half typed is given up
    m_player.MovePage(index);
}

void frmPreview::zoomTo(double zoom)
{
    m_isFitted = false;
    const auto middle = [](const QScrollBar *bar) { return bar->value() + bar->pageStep() / 2.0; };
    const double across = middle(HScroll1) / m_page->width(), down = middle(VScroll1) / m_page->height();
    const bool isAtTop = VScroll1->value() == 0, isAtLeft = HScroll1->value() == 0;
    m_player.zoomPreview(zoom);
    const auto bring = [](QScrollBar *bar, double place, int length) {
        bar->setValue(static_cast<int>(place * length - bar->pageStep() / 2.0));
    };
    if (!isAtLeft)
        bring(HScroll1, across, m_page->width());
    if (!isAtTop)
        bring(VScroll1, down, m_page->height());
}

void frmPreview::fitPage()
{
    m_player.sizePreviewPage();         // the window may have another size than when the page was drawn
    const double across = 1.0 * Frame->width() / m_page->width(), down = 1.0 * Frame->height() / m_page->height();
    zoomTo(Zoom * std::min(across, down) * fittedShare);
    m_isFitted = true;
}

void frmPreview::cmdSetup_Click()
{
    frmPreviewPages pages(m_job, this);
    pages.ShowModal();
    showChosenPages();
    if (pages.isChanged())
        print();
}

void frmPreview::cmdEmail_Click()
{
    m_player.PlayScript(u"EMAIL"_s);
    mailer()(m_page->picture());
}

bool frmPreview::turnAtEnd(int direction)
{
    const bool isAtEnd = VScroll1->value() == (direction > 0 ? VScroll1->maximum() : VScroll1->minimum());
    const int target = m_player.CurrentPage + direction;
    if (!isAtEnd || target < 0 || target >= m_player.TotalPages)
        return false;
    turnTo(direction > 0 ? 2 : 1);
    if (direction < 0)
        VScroll1->setValue(VScroll1->maximum());
    return true;
}

// The arrow and page keys belong to the page, whatever control has the keyboard.
bool frmPreview::passToScrollBar(const QObject *watched, const QKeyEvent *event)
{
    if (event->modifiers() & ~Qt::KeypadModifier)
        return false;
    QScrollBar *bar = nullptr;
    switch (event->key()) {
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (turnAtEnd(event->key() == Qt::Key_PageDown ? 1 : -1))
            return true;
        [[fallthrough]];
    case Qt::Key_Up:
    case Qt::Key_Down:
        bar = VScroll1;
        break;
    case Qt::Key_Left:
    case Qt::Key_Right:
        bar = HScroll1->isVisible() ? HScroll1 : nullptr;
        break;
    default:
        break;
    }
    if (!bar || bar == watched)
        return false;
    bar->setFocus();
    QKeyEvent again(QEvent::KeyPress, event->key(), event->modifiers());
    QApplication::sendEvent(bar, &again);
    return true;
}

bool frmPreview::eventFilter(QObject *watched, QEvent *event)
{
    bool isDone = false;
    if (event->type() == QEvent::KeyPress)
        basic::Trap([&] { isDone = passToScrollBar(watched, static_cast<QKeyEvent *>(event)); });
    return isDone || Form::eventFilter(watched, event);
}

void frmPreview::wheelEvent(QWheelEvent *event)
{
    const int steps = event->angleDelta().y();
    event->accept();
    basic::Trap([&] {
        if (event->modifiers() & Qt::ControlModifier) {
            zoomTo(steps > 0 ? Zoom * zoomStep : Zoom / zoomStep);
            return;
        }
        if (steps == 0 || event->modifiers() & Qt::ShiftModifier) {
            HScroll1->setValue(HScroll1->value() - (steps ? steps : event->angleDelta().x()) * 8);
            return;
        }
        if (!turnAtEnd(steps < 0 ? 1 : -1))
            VScroll1->setValue(VScroll1->value() - steps * 8);
    });
}

}
