#include "print/frmPreviewPages.h"

#include "platform/basic/colournumber.h"
#include "platform/controls/layout.h"
#include "platform/basic/prompts.h"
#include "platform/printer/printer.h"
#include "print/player.h"
#include "print/script.h"

#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>
#include <QVBoxLayout>

namespace vorel {

using namespace Qt::StringLiterals;
namespace layout = controls::layout;

namespace {

// Colours of a box with and without the keyboard: cyan and white.
constexpr int enteredColour = 11;
constexpr int leftColour = 15;

void paintBack(QLineEdit *box, int number)
{
    QPalette palette = box->palette();
    palette.setColor(QPalette::Base, basic::colourOfNumber(printer::QBColor(number)));
    palette.setColor(QPalette::Text, Qt::black);
    box->setPalette(palette);
}

QLineEdit *pageBox(const QString &name, const QString &spoken, int page)
{
    auto *box = new QLineEdit(QString::number(page));
    box->setObjectName(name);
    box->setAccessibleName(spoken);
    box->setFixedWidth(72);
    paintBack(box, leftColour);
    return box;
}

}

frmPreviewPages::frmPreviewPages(PrintJob &job, QWidget *parent) : Form(u"frmPreviewPages"_s, parent), m_job(job)
{
    setWindowTitle(tr("Print Pages"));
    // The bounds themselves change with CMD_OK alone: cancelling leaves them, and prints nothing.
    const PrintPlayer &player = job.player();
    const bool isOutside = player.LastPrintPage > player.TotalPages || player.LastPrintPage < player.FirstPrintPage;
    const int last = isOutside ? player.TotalPages : player.LastPrintPage;
    m_all = new QRadioButton(tr("&All pages"));
    m_all->setObjectName(u"OPT_Pages(0)"_s);
    m_all->setChecked(true);
    m_range = new QRadioButton(tr("Pages &from"));
    m_range->setObjectName(u"OPT_Pages(1)"_s);
    TXT_From = pageBox(u"TXT_From"_s, tr("First page"), player.FirstPrintPage);
    TXT_To = pageBox(u"TXT_To"_s, tr("Last page"), last);
    m_copies = new QSpinBox;
    m_copies->setObjectName(u"spnCopies"_s);
    m_copies->setRange(1, 99);
    m_copies->setValue(job.device().Copies);
    m_copies->setEnabled(job.device().hasHardware());       // a file is written once
    m_printer = new QComboBox;
    m_printer->setObjectName(u"cboPrinter"_s);
    m_printer->addItems(printer::printerNames());
    m_printer->setCurrentText(job.device().DeviceName());
    m_printer->setEnabled(m_printer->count() > 0);
    m_printer->setPlaceholderText(tr("No printer"));
    QAbstractButton *CMD_OK = controls::button(u"CMD_OK"_s, tr("&OK"), u"dialog-ok"_s);
    QAbstractButton *CDM_Cancel = controls::button(u"CDM_Cancel"_s, tr("&Cancel"), u"dialog-cancel"_s);
    auto *to = new QLabel(tr("&to"));
    to->setBuddy(TXT_To);
    QLayout *column = layout::Column({m_all, layout::Row({m_range, TXT_From, to, TXT_To, layout::Stretch{}}),
                                      layout::Fields({{tr("Co&pies"), m_copies}, {tr("P&rinter"), m_printer}}), layout::Space{}, layout::Stretch{},
                                      layout::Row({layout::Stretch{}, CMD_OK, CDM_Cancel})});
    layout::setMargins(column, 2 * layout::unit);
    setLayout(column);
    for (QLineEdit *box : {TXT_From, TXT_To})
        box->installEventFilter(this);
    controls::on(CMD_OK, &QAbstractButton::clicked, this, [this] { CMD_OK_Click(); });
    controls::on(CDM_Cancel, &QAbstractButton::clicked, this, [this] { Close(); });
}

void frmPreviewPages::showEvent(QShowEvent *event)
{
    Form::showEvent(event);
    m_all->setFocus();
}

bool frmPreviewPages::eventFilter(QObject *watched, QEvent *event)
{
    if (auto *box = qobject_cast<QLineEdit *>(watched)) {
        if (event->type() == QEvent::FocusIn)
            enter(box);
        else if (event->type() == QEvent::FocusOut)
            leave(box);
    }
    return Form::eventFilter(watched, event);
}

void frmPreviewPages::enter(QLineEdit *box)
{
    paintBack(box, enteredColour);
    QTimer::singleShot(0, box, [box] { box->selectAll(); });        // the click that brought the focus sets the cursor yet
    m_range->setChecked(true);
}

void frmPreviewPages::leave(QLineEdit *box)
{
    const double page = scanNumber(box->text());
    const int last = m_job.player().TotalPages;
    if (page > last || page < 1)
        box->setText(QString::number(page > last ? last : 1));
    paintBack(box, leftColour);
}

void frmPreviewPages::CMD_OK_Click()
{
    PrintPlayer &player = m_job.player();
    printer::Printer &device = m_job.device();
    const int first = player.FirstPrintPage, last = player.LastPrintPage, copies = device.Copies;
    const QString name = device.DeviceName();
    const auto pageOf = [](const QLineEdit *box) { return static_cast<int>(std::clamp(scanNumber(box->text()), 0.0, 32767.0)); };
    if (m_printer->isEnabled() && !printer::choosePrinter(device, m_printer->currentText()))
        basic::MsgBox(tr("The printer \"%1\" cannot be reached.").arg(m_printer->currentText()), {}, basic::Icon::Exclamation);
    device.Copies = m_copies->value();
    player.FirstPrintPage = m_all->isChecked() ? 1 : pageOf(TXT_From);
    player.LastPrintPage = m_all->isChecked() ? player.TotalPages : pageOf(TXT_To);
    m_isChanged = player.FirstPrintPage != first || player.LastPrintPage != last || device.Copies != copies
                  || device.DeviceName() != name;
    Close();
}

}
