#include "utilities/frmCalculator.h"

#include "media/frmDataPath.h"
#include "media/pictures.h"
#include "platform/basic/colournumber.h"
#include "platform/basic/convert.h"
#include "platform/basic/prompts.h"
#include "platform/controls/colours.h"
#include "platform/controls/layout.h"
#include "platform/desktop/picturefile.h"
#include "session/ini.h"
#include "utilities/conversions.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;
namespace layout = controls::layout;

namespace {

constexpr quint32 defaultColour = 0;
constexpr QSize keySize(56, 48), pictureSize(320, 200);
constexpr int longestReadout = 23;          // "-1.23456789012346E+100"
constexpr int listHeight = 136;             // so that picture and converter end on one line

const QString colourKey = u"CalculatorBackColour"_s, pictureKey = u"CalcPicFile"_s;

QColor backColour()
{
    return basic::colourOfNumber(GetIniColour(colourKey, defaultColour));
}

QPixmap readPicture(const QString &file, double ratio)
{
    QPixmap picture = QPixmap::fromImage(desktop::readPicture(file, pictureSize * ratio).image);
    picture.setDevicePixelRatio(ratio);
    return picture;
}

QLabel *label(const QString &name)
{
    auto *label = new QLabel;
    label->setObjectName(name);
    return label;
}

QListWidget *unitList(const QString &name, const QString &spoken)
{
    auto *list = new QListWidget;
    list->setObjectName(name);
    list->setAccessibleName(spoken);
    list->setFixedHeight(listHeight);
    return list;
}

}

frmCalculator::frmCalculator(QWidget *parent)
    : Form(u"frmCalculator"_s, parent), m_readout(label(u"Readout"_s)), m_picture(label(u"picImage"_s)),
      m_result(label(u"lblResult"_s)), m_note(label(u"lblNote"_s)), m_conversion(nullptr), m_amount(new QLineEdit),
      m_from(unitList(u"lstFrom"_s, u"Convert from"_s)), m_to(unitList(u"lstTo"_s, u"Convert to"_s))
{
    setWindowTitle(u"Calculator"_s);
    setSizeGripEnabled(false);
    QLayout *whole = layout::Row({layout::Column({m_readout, composeKeys()}), layout::Space{layout::unit},
                                  layout::Column({composePicture(), composeConversion()})});
    layout::setMargins(whole, 2 * layout::unit);
    setLayout(whole);
    setFocusPolicy(Qt::StrongFocus);
    setFocus();
    press([] { return Calculator::Outcome::Done; });
    paint();
    showPicture();
}

QPushButton *frmCalculator::key(const QString &name, const QString &caption, const QString &spoken, std::function<void()> step)
{
    auto *button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAccessibleName(spoken);
    button->setAutoDefault(false);
    button->setMinimumSize(keySize);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    QFont font = button->font();
    font.setPointSizeF(font.pointSizeF() * 1.3);
    button->setFont(font);
    on(button, &QPushButton::clicked, this, std::move(step));
    return button;
}

QWidget *frmCalculator::composeKeys()
{
    m_readout->setAccessibleName(u"Display"_s);
    m_readout->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_readout->setBackgroundRole(QPalette::Base);
    m_readout->setAutoFillBackground(true);
    m_readout->setMargin(layout::unit);
    QFont font = m_readout->font();
    font.setPointSizeF(font.pointSizeF() * 1.7);
    m_readout->setFont(font);
    m_readout->setMinimumWidth(QFontMetrics(font).horizontalAdvance(QString(longestReadout, u'0')));
    m_readout->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto *keys = new QWidget;
    auto *grid = new QGridLayout(keys);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(layout::unit);
    using Key = Calculator::Key;
    const auto simple = [this](void (Calculator::*step)()) {
        return [this, step] { press([this, step] { (m_calculator.*step)(); return Calculator::Outcome::Done; }); };
    };
    grid->addWidget(key(u"Cancel"_s, u"C"_s, u"Clear everything"_s, simple(&Calculator::Cancel)), 0, 0);
    grid->addWidget(key(u"CancelEntry"_s, u"CE"_s, u"Clear the entry"_s, simple(&Calculator::CancelEntry)), 0, 1);
    grid->addWidget(key(u"Percent"_s, u"%"_s, u"Percent"_s, [this] { press([this] { return m_calculator.Percent(); }); }), 0, 2);
    struct OperatorKey {
        Key key;
        QString caption, spoken;
        int row;
    };
    const OperatorKey operators[] = {{Key::Plus, u"+"_s, u"Plus"_s, 3}, {Key::Minus, u"\u2212"_s, u"Minus"_s, 2},
                                     {Key::Multiply, u"\u00D7"_s, u"Multiply"_s, 1}, {Key::Divide, u"\u00F7"_s, u"Divide"_s, 0},
                                     {Key::Equals, u"="_s, u"Equals"_s, 4}};
    for (const OperatorKey &entry : operators) {
        grid->addWidget(key(u"Operator(%1)"_s.arg(static_cast<int>(entry.key)), entry.caption, entry.spoken,
                            [this, what = entry.key] { press([this, what] { return m_calculator.Operator(what); }); }),
                        entry.row, 3);
    }
    for (int digit = 0; digit <= 9; ++digit) {
        QPushButton *button = key(u"Number(%1)"_s.arg(digit), QString::number(digit), QString::number(digit), [this, digit] {
            press([this, digit] { m_calculator.Number(digit); return Calculator::Outcome::Done; });
        });
        if (digit == 0)
            grid->addWidget(button, 4, 0, 1, 2);
        else
            grid->addWidget(button, 3 - (digit - 1) / 3, (digit - 1) % 3);
    }
    grid->addWidget(key(u"Decimal"_s, u"."_s, u"Decimal point"_s, simple(&Calculator::Decimal)), 4, 2);
    return keys;
}

QWidget *frmCalculator::composePicture()
{
    m_picture->setFixedSize(pictureSize);
    m_picture->setAlignment(Qt::AlignCenter);
    m_picture->setWordWrap(true);
    m_picture->setBackgroundRole(QPalette::Base);
    m_picture->setAutoFillBackground(true);
    m_picture->setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    m_picture->setLineWidth(0);
    m_picture->setCursor(Qt::PointingHandCursor);
    m_picture->setFocusPolicy(Qt::TabFocus);
    m_picture->setAccessibleName(u"Picture"_s);
    m_picture->setToolTip(u"Click to choose a picture"_s);
    m_picture->installEventFilter(this);
    return m_picture;
}

QWidget *frmCalculator::composeConversion()
{
    m_amount->setObjectName(u"txtConvert"_s);
    m_amount->setMaxLength(20);
    m_result->setWordWrap(true);
    m_result->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_result->setMinimumHeight(2 * m_result->fontMetrics().lineSpacing());
    m_note->setWordWrap(true);
    m_note->setMinimumHeight(2 * m_note->fontMetrics().lineSpacing());      // the screen keeps its size when it is shown
    m_from->addItems(conversionUnits());
    on(m_from, &QListWidget::currentRowChanged, this, [this] { GetList(); });
    on(m_to, &QListWidget::currentRowChanged, this, [this] {
        m_result->clear();
        showNote();
    });
    on(m_to, &QListWidget::itemDoubleClicked, this, [this] { cmdConvert_Click(); });
    auto *convert = new QPushButton(u"Con&vert"_s);
    convert->setObjectName(u"cmdConvert"_s);
    convert->setAutoDefault(false);
    on(convert, &QPushButton::clicked, this, [this] { cmdConvert_Click(); });
    QAbstractButton *colour = controls::button(u"cmdColor"_s, u"&Colour..."_s, {}, u"Back colour of this screen"_s);
    on(colour, &QAbstractButton::clicked, this, [this] { cmdColor_Click(); });
    if (auto *plain = qobject_cast<QPushButton *>(colour))
        plain->setAutoDefault(false);
    QLayout *lists = layout::Row({m_from, m_to});
    QLayout *content = layout::Column({layout::Fields({{u"&Amount"_s, m_amount}}), lists, m_note, m_result,
                                       layout::Row({convert, layout::Stretch{}, colour})});
    m_conversion = layout::Group(u"panConversion"_s, u"Conversion"_s, content);
    return m_conversion;
}

void frmCalculator::press(const std::function<Calculator::Outcome()> &step)
{
    const Calculator::Outcome outcome = step();
    m_readout->setText(m_calculator.Readout());
    if (outcome == Calculator::Outcome::DivisionByZero)
        basic::MsgBox(u"Can't divide by zero"_s, u"Calculator"_s, basic::Icon::Exclamation);
    else if (outcome == Calculator::Outcome::Overflow)
        basic::MsgBox(u"The result is too large to be shown"_s, u"Calculator"_s, basic::Icon::Exclamation);
}

void frmCalculator::keyPressEvent(QKeyEvent *event)
{
    if (!typed(*event))
        Form::keyPressEvent(event);
}

// Esc clears the calculator, and closes the screen when there is nothing left to clear.
bool frmCalculator::typed(const QKeyEvent &event)
{
    const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (focusWidget() && m_conversion->isAncestorOf(focusWidget())) {
        if (enter)
            basic::Trap([this] { cmdConvert_Click(); });
        return enter;
    }
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier))
        return false;
    static const std::pair<QString, QString> keys[] = {
        {u"+"_s, u"Operator(0)"_s}, {u"-"_s, u"Operator(1)"_s}, {u"*"_s, u"Operator(2)"_s}, {u"x"_s, u"Operator(2)"_s},
        {u"/"_s, u"Operator(3)"_s}, {u"="_s, u"Operator(4)"_s}, {u"%"_s, u"Percent"_s},     {u"."_s, u"Decimal"_s},
        {u","_s, u"Decimal"_s}};
    QString name;
    const QString text = event.text().toLower();
    if (text.size() == 1 && text[0] >= u'0' && text[0] <= u'9')
        name = u"Number(%1)"_s.arg(text);
    for (const auto &[character, control] : keys)
        if (text == character)
            name = control;
    if (enter)
        name = u"Operator(4)"_s;
    else if (event.key() == Qt::Key_Delete)
        name = u"CancelEntry"_s;
    else if (event.key() == Qt::Key_Escape && !m_calculator.isClear())
        name = u"Cancel"_s;
    if (event.key() == Qt::Key_Backspace) {
        press([this] { m_calculator.Back(); return Calculator::Outcome::Done; });
        return true;
    }
    if (name.isEmpty())
        return false;
    findChild<QPushButton *>(name)->click();
    return true;
}

void frmCalculator::GetList()
{
    m_to->clear();
    m_to->addItems(unitsLike(m_from->currentItem() ? m_from->currentItem()->text() : QString()));
    m_to->setCurrentRow(0);
    m_result->clear();
    showNote();
}

void frmCalculator::showNote()
{
    const auto unit = [](const QListWidget *list) { return list->currentItem() ? list->currentItem()->text() : QString(); };
    m_note->setText(conversionNote(unit(m_from), unit(m_to)));
}

void frmCalculator::cmdConvert_Click()
{
    m_result->clear();
    const double amount = typedAmount(m_amount->text());
    if (!m_from->currentItem() || !m_to->currentItem())
        return;
    const QString from = m_from->currentItem()->text(), to = m_to->currentItem()->text();
    if (const std::optional<QString> result = convertUnits(amount, from, to))
        m_result->setText(u"%1 %2 = %3 %4"_s.arg(basic::CStr(amount), from, *result, to));
}

void frmCalculator::cmdColor_Click()
{
    const std::optional<quint32> chosen = basic::prompts().chooseColour(backColour().rgb() & 0xFFFFFF);
    if (!chosen)
        return;
    PutIniValue(iniSettings, colourKey, QString::number(basic::numberOfColour(QColor::fromRgb(*chosen))));
    paint();
}

// Everything on the screen takes its shade from the one colour, so that all of it stays readable on any.
void frmCalculator::paint()
{
    const QColor back = backColour(), text = controls::blackOrWhiteOn(back);
    QPalette colours = palette();
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours.setColor(role, text);
    colours.setColor(QPalette::Window, back);
    colours.setColor(QPalette::Base, controls::blend(back, text, 0.08));
    colours.setColor(QPalette::Button, controls::blend(back, text, 0.15));
    colours.setColor(QPalette::PlaceholderText, controls::blend(text, back, 0.35));
    setPalette(colours);
    QPalette strong = colours;
    strong.setColor(QPalette::Button, controls::blend(back, text, 0.28));
    for (QPushButton *button : findChildren<QPushButton *>())
        button->setPalette(button->objectName().startsWith(u"Operator"_s) ? strong : colours);
}

bool frmCalculator::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_picture)
        return Form::eventFilter(watched, event);
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        m_picture->setLineWidth(event->type() == QEvent::FocusIn ? 2 : 0);
    const bool space = event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Space;
    const bool click = event->type() == QEvent::MouseButtonRelease
                       && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton;
    if (!space && !click)
        return Form::eventFilter(watched, event);
    basic::Trap([this] { picImage_Click(); });
    return true;
}

void frmCalculator::picImage_Click()
{
    PutIniValue(iniSettings, pictureKey,
                chooseDataPath({u"CalcPic"_s, GetIniValue(iniSettings, pictureKey, {}), {}, this}));
    showPicture();
}

void frmCalculator::showPicture()
{
    const QPixmap picture = readPicture(pictureFile(GetIniValue(iniSettings, pictureKey, {})), devicePixelRatioF());
    if (picture.isNull())
        m_picture->setText(u"Click here for a picture of your own"_s);
    else
        m_picture->setPixmap(picture);
}

void showCalculator(QWidget *parent)
{
    static QPointer<frmCalculator> open;
    if (!open || !open->isVisible()) {          // one that was closed goes only with the next event
        open = new frmCalculator(parent);
        open->setAttribute(Qt::WA_DeleteOnClose);
    }
    open->show();
    open->raise();
    open->activateWindow();
}

}
