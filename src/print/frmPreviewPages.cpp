#include "print/frmPreviewPages.h"

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

constexpr int enteredColour = 11;
constexpr int leftColour = 15;

void paintBack(QLineEdit *box, int number)
{
    const quint32 colour = printer::QBColor(number);
    QPalette palette = box->palette();
    palette.setColor(QPalette::Base, QColor(static_cast<int>(colour & 0xff), static_cast<int>(colour >> 8 & 0xff),
                                            static_cast<int>(colour >> 16 & 0xff)));
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

frmPreviewPages::frmPreviewPages(QWidget *parent) : Form(u"frmPreviewPages"_s, parent)
{
    setWindowTitle(tr("Print Pages"));
    // The bounds themselves change with CMD_OK alone: cancelling leaves them, and prints nothing.
    const PlayerState &state = playerState();
    const bool isOutside = state.LastPrintPage > state.TotalPages || state.LastPrintPage < state.FirstPrintPage;
    const int last = isOutside ? state.TotalPages : state.LastPrintPage;
    m_all = new QRadioButton(tr("&All pages"));
    m_all->setObjectName(u"OPT_Pages(0)"_s);
    m_all->setChecked(true);
    m_range = new QRadioButton(tr("Pages &from"));
    m_range->setObjectName(u"OPT_Pages(1)"_s);
    TXT_From = pageBox(u"TXT_From"_s, tr("First page"), state.FirstPrintPage);
    TXT_To = pageBox(u"TXT_To"_s, tr("Last page"), last);
    m_copies = new QSpinBox;
    m_copies->setObjectName(u"spnCopies"_s);
    m_copies->setRange(1, 99);
    m_copies->setValue(printer::thePrinter().Copies);
    m_printer = new QComboBox;
    m_printer->setObjectName(u"cboPrinter"_s);
    m_printer->addItems(printer::printerNames());
    m_printer->setCurrentText(printer::thePrinter().DeviceName());
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
    if (scanNumber(box->text()) > playerState().TotalPages)
        box->setText(QString::number(playerState().TotalPages));
    paintBack(box, leftColour);
}

void frmPreviewPages::CMD_OK_Click()
{
    PlayerState &state = playerState();
    const auto pageOf = [](const QLineEdit *box) { return static_cast<int>(std::clamp(scanNumber(box->text()), 0.0, 32767.0)); };
    if (m_printer->isEnabled() && !printer::choosePrinter(m_printer->currentText()))
        basic::MsgBox(tr("The printer \"%1\" cannot be reached.").arg(m_printer->currentText()), {}, basic::Icon::Exclamation);
    printer::thePrinter().Copies = m_copies->value();
    state.FirstPrintPage = m_all->isChecked() ? 1 : pageOf(TXT_From);
    state.LastPrintPage = m_all->isChecked() ? state.TotalPages : pageOf(TXT_To);
    Close();
}

}
