#include "contacts/frmPrintAddressBook.h"

#include "platform/basic/colournumber.h"
#include "platform/basic/prompts.h"
#include "platform/controls/colours.h"
#include "platform/controls/keyrow.h"
#include "platform/controls/layout.h"
#include "platform/printer/page.h"
#include "print/script.h"
#include "session/datafiles.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;
namespace layout = controls::layout;

namespace {

QColor paperColour(int number)
{
    return basic::colourOfNumber(printer::QBColor(number));
}

QIcon swatch(int number, const QWidget *screen)
{
    const double ratio = screen->devicePixelRatioF();
    constexpr int width = 24, height = 14;
    QPixmap picture(QSize(width, height) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(paperColour(number));
    QPainter painter(&picture);
    painter.setPen(controls::blend(screen->palette().color(QPalette::Base), screen->palette().color(QPalette::Text), 0.5));
    painter.drawRect(QRectF(0.5, 0.5, width - 1, height - 1));
    return picture;
}

}

const QStringList &bookColourNames()
{
    static const QStringList names{u"Black"_s, u"Blue"_s, u"Green"_s, u"Cyan"_s, u"Red"_s, u"Magenta"_s, u"Yellow"_s, u"White"_s,
                                   u"Grey"_s, u"Light Blue"_s, u"Light Green"_s, u"Light Cyan"_s, u"Light Red"_s, u"Light Magenta"_s,
                                   u"Light Yellow"_s, u"Bright White"_s};
    return names;
}

// A corner of a page as it will be printed: margins, heading bar and font, on white paper in any palette.
class frmPrintAddressBook::Sample : public QWidget {
public:
    explicit Sample(const AddressBookStyle &style) : m_style(style)
    {
        setObjectName(u"picSample"_s);
        setAccessibleName(u"Sample of a page"_s);
        setMinimumSize(40 * layout::unit, 26 * layout::unit);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setPen(controls::hairline(palette()));
        painter.setBrush(Qt::white);
        painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
        painter.setClipRect(rect().adjusted(1, 1, -1, -1));
        const double millimetre = 96 / 25.4;
        const double left = 8 + m_style.leftMargin * millimetre, width = this->width() - left - 12;
        double y = 8 + m_style.topMargin * millimetre;
        QFont plain(m_style.font), bold(m_style.font);
        plain.setPixelSize(qRound(m_style.size * 96 / 72));
        bold.setPixelSize(plain.pixelSize());
        bold.setBold(true);
        const double line = QFontMetricsF(bold).height(), labels = QFontMetricsF(bold).horizontalAdvance(u"Birthday: "_s) + 4;
        for (const auto &[name, entry] : {std::pair{u"CITIZEN, Ann"_s, u"1 High Street"_s}, std::pair{u"STONE, Bob"_s, u"24 Mill Lane"_s}}) {
            painter.fillRect(QRectF(left, y, width, line + 4), paperColour(m_style.headingColour));
            painter.setPen(basic::colourOfNumber(bookHeadingColour(m_style)));
            painter.setFont(bold);
            painter.drawText(QRectF(left + 6, y + 2, width - 12, line), Qt::AlignLeft | Qt::AlignVCenter, name);
            y += line + 7;
            painter.setPen(Qt::black);
            painter.drawText(QPointF(left + 6, y + QFontMetricsF(bold).ascent()), u"Home:"_s);
            painter.setFont(plain);
            for (const QString &text : {entry, u"Perth 6000"_s, u"08 9555 0101"_s}) {
                painter.drawText(QPointF(left + 6 + labels, y + QFontMetricsF(plain).ascent()), text);
                y += line;
            }
            y += line / 2;
        }
    }

private:
    const AddressBookStyle &m_style;
};

frmPrintAddressBook::frmPrintAddressBook(QWidget *parent)
    : Form(u"frmPrintAddressBook"_s, parent), m_style(addressBookStyle()), m_font(new QLabel), m_marked(new QLabel), m_state(new QLabel),
      m_sample(new Sample(m_style))
{
    setWindowTitle(u"Address Book Printing"_s);
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->setSpacing(0);
    QLayout *content = layout::Column({composeSettings(), composeContacts()});
    layout::setMargins(content, 2 * layout::unit);
    content->setSpacing(2 * layout::unit);
    whole->addLayout(content, 1);
    whole->addWidget(composeKeys());
    resize(104 * layout::unit, 62 * layout::unit);
    showFont();
    basic::Trap([this] { countMarked(); });
    findChild<QWidget *>(u"cmdContactsFont"_s)->setFocus();
}

QComboBox *frmPrintAddressBook::numberList(const QString &name, const QList<int> &numbers, double current)
{
    auto *list = new QComboBox;
    list->setObjectName(name);
    QList<double> values(numbers.begin(), numbers.end());
    if (!values.contains(current))              // one that was written into the file by hand
        values.insert(std::upper_bound(values.begin(), values.end(), current), current);
    for (const double value : values)
        list->addItem(locale().toString(value, 'g', 6), value);
    list->setCurrentIndex(list->findData(current));
    on(list, &QComboBox::currentIndexChanged, handlers(), [this] { settingsChanged(); });
    return list;
}

QComboBox *frmPrintAddressBook::colourList(const QString &name, int current)
{
    auto *list = new QComboBox;
    list->setObjectName(name);
    list->setIconSize({24, 14});
    list->setMaxVisibleItems(16);
    for (int number = 0; number < bookColourNames().size(); ++number)
        list->addItem(swatch(number, this), bookColourNames().at(number));
    list->setCurrentIndex(current);
    on(list, &QComboBox::currentIndexChanged, handlers(), [this] { settingsChanged(); });
    return list;
}

QWidget *frmPrintAddressBook::composeSettings()
{
    QList<int> lines, margins;
    for (int number = 20; number <= 80; number += number < 40 ? 5 : 2)
        lines << number;
    for (int number = 0; number <= 40; number += number < 20 ? 1 : 5)
        margins << number;
    QAbstractButton *font = controls::button(u"cmdContactsFont"_s, u"&Font..."_s, u"preferences-desktop-font"_s, u" Font of the address book "_s);
    on(font, &QAbstractButton::clicked, handlers(), [this] { cmdContactsFont_Click(); });
    m_font->setObjectName(u"lblContactsFont"_s);
    cboLinesPerPage = numberList(u"cboLinesPerPage"_s, lines, m_style.linesPerPage);
    cboTopMargin = numberList(u"cboTopMargin"_s, margins, m_style.topMargin);
    cboLeftMargin = numberList(u"cboLeftMargin"_s, margins, m_style.leftMargin);
    cboAddressHeadingColor = colourList(u"cboAddressHeadingColor"_s, m_style.headingColour);
    cboAddressHeadingFontColor = colourList(u"cboAddressHeadingFontColor"_s, m_style.headingFontColour);
    QLayout *fields = layout::Column({layout::Row({font, m_font, layout::Stretch{}}),
                                      layout::Fields({{u"Lines &per page"_s, cboLinesPerPage},
                                                      {u"Top &margin (mm)"_s, cboTopMargin},
                                                      {u"&Left margin (mm)"_s, cboLeftMargin},
                                                      {u"&Heading colour"_s, cboAddressHeadingColor},
                                                      {u"Heading f&ont colour"_s, cboAddressHeadingFontColor}}),
                                      layout::Stretch{}});
    auto *both = new QHBoxLayout;
    both->setSpacing(2 * layout::unit);
    both->addLayout(fields);
    both->addWidget(m_sample, 1);
    return layout::Group(u"fraSettings"_s, u"Pages"_s, both);
}

QWidget *frmPrintAddressBook::composeContacts()
{
    cboPrint = new QComboBox;
    cboPrint->setObjectName(u"cboPrint"_s);
    cboPrint->setAccessibleName(u"What to do with all contacts"_s);
    cboPrint->addItems({u"SELECT"_s, u"DESELECT"_s});
    m_marked->setObjectName(u"lblMarked"_s);
    QAbstractButton *mark = controls::button(u"cmdPrintContacts"_s, u"&All Contacts"_s, {}, u" Selects or deselects all contacts for the address book "_s);
    on(mark, &QAbstractButton::clicked, handlers(), [this] { cmdPrintContacts_Click(); });
    return layout::Group(u"fraContacts"_s, u"Contacts"_s, layout::Row({cboPrint, mark, layout::Space{layout::unit}, m_marked, layout::Stretch{}}));
}

QWidget *frmPrintAddressBook::composeKeys()
{
    const auto key = [this](const QString &name, const QString &caption, const QString &tip, std::function<void()> step) {
        QAbstractButton *made = controls::button(name, caption, name == u"cmdClose" ? u"window-close"_s : u"document-print"_s, tip);
        on(made, &QAbstractButton::clicked, handlers(), std::move(step));
        return made;
    };
    QAbstractButton *format = key(u"cmdFormatBook"_s, u"Print &Booklet"_s, u" Prints a booklet with these settings "_s,
                                  [this] { PrintAddressBook(true, m_style); });
    QAbstractButton *without = key(u"cmdPrintWithoutSettings"_s, u"Booklet &without Settings"_s,
                                   u" Prints a booklet with the program's own settings "_s, [] { PrintAddressBook(true); });
    QAbstractButton *standard = key(u"cmdStandardBook"_s, u"&Standard Book"_s, u" Prints a separate page for each letter "_s,
                                    [this] { PrintAddressBook(false, m_style, BookPages::EachLetter); });
    QAbstractButton *close = key(u"cmdClose"_s, u"&Close"_s, {}, [this] { Close(); });
    m_state->setObjectName(u"lblState"_s);
    return new controls::KeyRow({format, without, standard}, m_state, {close}, this);
}

void frmPrintAddressBook::showFont()
{
    m_font->setText(u"%1 Size: %2"_s.arg(m_style.font, locale().toString(m_style.size, 'g', 4)));
    m_sample->update();
}

// How many contacts the book will have.
void frmPrintAddressBook::countMarked()
{
    dao::Database database = openDataFile(DataFile::Contacts);
    dao::Recordset rows = database.OpenRecordset(u"SELECT [ID] FROM [Contacts] WHERE [PRINTADDRESSBOOK]=True"_s);
    const qsizetype marked = rows.rowTotal();
    m_marked->setText(marked == 0 ? u"No contact is selected for the address book."_s
                      : marked == 1 ? u"1 contact is selected for the address book."_s
                                    : u"%1 contacts are selected for the address book."_s.arg(locale().toString(marked)));
}

void frmPrintAddressBook::settingsChanged()
{
    m_style.linesPerPage = static_cast<int>(cboLinesPerPage->currentData().toDouble());
    m_style.topMargin = cboTopMargin->currentData().toDouble();
    m_style.leftMargin = cboLeftMargin->currentData().toDouble();
    m_style.headingColour = cboAddressHeadingColor->currentIndex();
    m_style.headingFontColour = cboAddressHeadingFontColor->currentIndex();
    m_sample->update();
    keepAddressBookStyle(m_style);
}

void frmPrintAddressBook::cmdContactsFont_Click()
{
    const std::optional<basic::FontChoice> chosen = basic::prompts().chooseFont({.name = m_style.font, .points = m_style.size});
    if (!chosen)
        return;
    if (!chosen->name.isEmpty())
        m_style.font = chosen->name;
    if (chosen->points > 0)
        m_style.size = std::clamp(chosen->points, leastBookSize, mostBookSize);
    keepAddressBookStyle(m_style);
    showFont();
}

void frmPrintAddressBook::cmdPrintContacts_Click()
{
    const bool all = cboPrint->currentText() == u"SELECT";
    const QString question = u"This option will %1 all of the Contacts for Address Book Printing%2\r\nProceed?"_s.arg(
        cboPrint->currentText(), all ? QString() : u", except those identified for Printing in the Contact."_s);
    if (!basic::askYesNo(question))
        return;
    markForAddressBook(all);
    countMarked();
}

}
