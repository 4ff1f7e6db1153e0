#include "reminders/frmRecordFields.h"

#include "platform/controls/keyrow.h"
#include "platform/controls/layout.h"
#include "session/state.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>

// Registers the built-in pictures; by the tool's own rule outside of any namespace.
static void initialisePictures() { Q_INIT_RESOURCE(resources); }

namespace vorel {

using namespace Qt::StringLiterals;
namespace layout = controls::layout;

QFormLayout *frmRecord::formOf(const controls::Field &field)
{
    return isOnPanel(field) || field.kind == controls::FieldKind::Hidden ? nullptr : m_form;
}

QWidgetList frmRecord::buttonsBeside(const controls::Field &field)
{
    if (field.control == u"txtWebsite")
        return {control(u"cmdWebsite"_s)};
    if (field.control == u"txtEmail")
        return {control(u"cmdEmail"_s)};
    return field.control == u"lblFilename" ? QWidgetList{control(u"cmdPicture"_s), control(u"cmdRemove"_s)} : QWidgetList{};
}

// cmdCalc moves from box to box: each keeps a place for it, so that nothing else moves.
void frmRecord::createDateSlots()
{
    for (const controls::Field &field : fields()) {
        if (field.kind != controls::FieldKind::Date)
            continue;
        auto *slot = new QWidget;
        slot->setFixedWidth(4 * layout::unit);
        layout::setMargins(new QHBoxLayout(slot), 0);
        qobject_cast<QHBoxLayout *>(lineOf(field.control)->layout())->insertWidget(1, slot);
        m_slots.insert(field.control, slot);
    }
}

void frmRecord::createButtons()
{
    for (const controls::ScreenKey &key : std::vector<controls::ScreenKey>{
             {u"cmdNew"_s, u"&New"_s, u"document-new"_s, u" Adds a new Record "_s},
             {u"cmdReplicate"_s, u"&Replicate"_s, u"edit-copy"_s, u" Makes a copy of this Record "_s},
             {u"cmdDelete"_s, u"De&lete"_s, u"edit-delete"_s, u" Deletes this Record and its series "_s},
             {u"cmdSchedule"_s, u"Fre&quency"_s, u"view-refresh"_s, u" Shows or hides the Frequency "_s},
             {u"cmdUpdate"_s, u"&Update"_s, u"document-save"_s, u" Saves this Record and its series "_s},
             {u"cmdClose"_s, u"Cl&ose"_s, u"window-close"_s},
             {u"cmdCalc"_s, {}, u"view-calendar-day"_s, u"Choose a date (Alt+Down)"_s},
             {u"cmdWebsite"_s, u"&Visit"_s, u"internet-web-browser"_s, u" Opens the Website "_s},
             {u"cmdEmail"_s, u"&Write"_s, u"mail-message-new"_s, u" Writes an E-mail "_s},
             {u"cmdPicture"_s, u"&Picture..."_s, u"insert-image"_s, u" Selects a Picture "_s},
             {u"cmdRemove"_s, u"Re&move"_s, {}, u" Removes the Picture "_s},
             {u"cmdApply"_s, u"Appl&y"_s, u"dialog-ok-apply"_s, u"Applies the new Due Date"_s},
             {u"cmdCancel"_s, u"&Cancel"_s, u"edit-undo"_s, u"Reverts back to initial Date"_s}})
        addButton(key);
    control<QPushButton>(u"cmdUpdate"_s)->setDefault(true);
    auto *calc = control<QPushButton>(u"cmdCalc"_s);
    calc->setFixedWidth(4 * layout::unit);
    calc->setAccessibleName(u"Choose a date"_s);
    calc->setIcon(QIcon::fromTheme(u"view-calendar-day"_s, QIcon(u":/pictures/date.svg"_s)));
}

QLayout *frmRecord::createOptions()
{
    static constexpr const char16_t *captions[] = {
        u"Each Calendar Month", u"Every Quarter (3 months)", u"Annually (12 months)", u"of each Month", u"Every"};
    auto *days = new QComboBox;
    days->setObjectName(u"cboDays"_s);
    days->setAccessibleName(u"Number of days"_s);
    days->setEditable(true);
    days->setInsertPolicy(QComboBox::NoInsert);
    days->addItems({u"1"_s, u"2"_s, u"7"_s, u"10"_s, u"14"_s, u"21"_s, u"28"_s, u"30"_s, u"60"_s, u"90"_s});
    days->setCurrentIndex(-1);
    days->clearEditText();
    keep(days);

    m_options = new QButtonGroup(this);
    const auto option = [this](int index) {
        const QString caption = QString::fromUtf16(captions[index]);
        // The weekday option's words come after its two lists.
        auto *button = new QRadioButton(index == 3 ? QString() : caption, this);
        button->setObjectName(memberName(u"optPeriod"_s, index));
        button->setAccessibleName(caption);
        m_options->addButton(button, index);
        keep(button);
        return button;
    };
    return layout::Column({
        option(0),
        option(1),
        option(2),
        layout::Row({option(3), lineOf(u"cboDay"_s), lineOf(u"cboWeekDay"_s),
                     new QLabel(QString::fromUtf16(captions[3])), layout::Stretch{}}),
        layout::Row({option(4), days, new QLabel(u"Days"_s), layout::Stretch{}}),
    });
}

QLayout *frmRecord::createPeriods()
{
    QFormLayout *form = createFormLayout();
    for (const QString &field : {u"txtPeriodMonth"_s, u"txtPeriodDays"_s}) {
        control(field)->setFixedWidth(8 * layout::unit);
        form->addRow(labelOf(field), lineOf(field));
    }
    for (const auto &[name, words] : {std::pair{u"lblNextDate"_s, u"Next due:"_s}, {u"lblInitialDate"_s, u"Initial date:"_s}}) {
        auto *shown = new QLabel;
        shown->setObjectName(name);
        shown->setTextFormat(Qt::PlainText);
        keep(shown);
        form->addRow(words, shown);
    }
    return form;
}

QWidget *frmRecord::createFrequencyPanel()
{
    QLayout *options = createOptions();
    QLayout *keys = layout::Row({layout::Stretch{}, control(u"cmdApply"_s), control(u"cmdCancel"_s)});
    QWidget *panel = layout::Group(u"fraBill"_s, m_design.frequencyTitle.toString(),
                                   layout::Column({options, createPeriods(), keys}));
    keep(panel);
    return panel;
}

QWidget *frmRecord::createDetailsPanel()
{
    auto *panel = new QWidget(this);
    panel->setObjectName(u"panFullDetails"_s);
    auto *category = new QLabel;
    category->setObjectName(u"lblCategory"_s);
    category->setTextFormat(Qt::PlainText);
    QFont strong = category->font();
    strong.setBold(true);
    category->setFont(strong);
    keep(panel);
    keep(category);
    control(u"rtbFullDetails"_s)->setMinimumHeight(12 * layout::unit);
    panel->setLayout(layout::Column({category, labelOf(u"rtbFullDetails"_s), lineOf(u"rtbFullDetails"_s)}));
    panel->setVisible(isA(ReminderKind::Event));
    return panel;
}

QWidget *frmRecord::createPicture()
{
    auto *picture = new QLabel(this);
    picture->setObjectName(u"picImage"_s);
    picture->setAccessibleName(u"Picture"_s);
    picture->setAlignment(Qt::AlignCenter);
    picture->setFixedHeight(20 * layout::unit);
    picture->setMinimumWidth(36 * layout::unit);
    keep(picture);
    ShowPic({});
    return picture;
}

void frmRecord::composeScreen()
{
    initialisePictures();
    m_form = createFormLayout();
    createButtons();
    createFields(recordFields(m_design));
    createDateSlots();
    moveCalcBeside(u"txtDate"_s);
    for (const controls::Field &field : fields()) {
        if (field.field.isEmpty())
            showField(field.control, false);
    }
    control(u"cmdSchedule"_s)->setVisible(!isA(ReminderKind::Event));

    auto *right = new QVBoxLayout;
    right->setSpacing(layout::unit);
    right->addWidget(createPicture());
    right->addWidget(createFrequencyPanel());
    right->addWidget(createDetailsPanel(), 1);
    SetScheduler(!isA(ReminderKind::Event));        // the first size allows for the open panel
    if (!isA(ReminderKind::Event))
        right->addStretch(1);

    auto *body = new QWidget;
    auto *columns = new QHBoxLayout(body);
    layout::setMargins(columns, 2 * layout::unit);
    columns->setSpacing(3 * layout::unit);
    columns->addLayout(m_form, 3);
    columns->addLayout(right, 2);
    auto *scroll = new QScrollArea;
    scroll->setObjectName(u"body"_s);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(body);

    auto *navigator = new controls::DataNavigator(&dtaData());
    navigator->setObjectName(u"navigator"_s);
    keep(navigator);
    QWidget *keys = createKeyRow({u"navigator"_s, u"cmdNew"_s, u"cmdReplicate"_s, u"cmdDelete"_s, u"cmdSchedule"_s},
                                 {u"cmdUpdate"_s, u"cmdClose"_s});
    auto *rule = new QFrame;
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    auto *screenColumn = new QVBoxLayout(this);
    screenColumn->setContentsMargins(0, 0, 0, 0);
    screenColumn->setSpacing(0);
    screenColumn->addWidget(scroll, 1);
    screenColumn->addWidget(rule);
    screenColumn->addWidget(keys);
    orderTabs(navigator);

    const QSize wanted = body->sizeHint() + QSize(0, keys->sizeHint().height() + layout::unit);
    SetScheduler(false);
    // Wide enough for what a save says of its series beside the keys.
    const int said = keys->fontMetrics().horizontalAdvance(u"365 further dates up to 12/28/2027"_s);
    resize(std::max(wanted.width(), keys->sizeHint().width() + said), wanted.height());
}

// The Tab key goes as the screen reads: the fields with their buttons, the panels, the navigator, the keys.
void frmRecord::orderTabs(const QWidget *navigator)
{
    QWidgetList chain;
    const auto add = [&](const QStringList &names) {
        for (const QString &name : names)
            chain += control(name);
    };
    QWidgetList panels;
    for (const controls::Field &field : fields()) {
        if (isOnPanel(field))
            panels += control(field.control);
    }
    for (QWidget *widget : fieldChain()) {
        if (!panels.contains(widget))
            chain += widget;
    }
    add({u"optPeriod(0)"_s, u"optPeriod(1)"_s, u"optPeriod(2)"_s, u"optPeriod(3)"_s, u"cboDay"_s, u"cboWeekDay"_s,
         u"optPeriod(4)"_s, u"cboDays"_s, u"txtPeriodMonth"_s, u"txtPeriodDays"_s, u"cmdApply"_s, u"cmdCancel"_s,
         u"rtbFullDetails"_s});
    for (QAbstractButton *step : navigator->findChildren<QAbstractButton *>())
        chain += step;
    add({u"cmdNew"_s, u"cmdReplicate"_s, u"cmdDelete"_s, u"cmdSchedule"_s, u"cmdUpdate"_s, u"cmdClose"_s});
    chainTabs(chain);
    setTabOrder(control(m_calcBox), control(u"cmdCalc"_s));
}

void frmRecord::moveCalcBeside(const QString &box)
{
    if (m_calcBox == box)
        return;
    m_calcBox = box;
    auto *calc = control(u"cmdCalc"_s);
    m_slots.value(box)->layout()->addWidget(calc);
    calc->show();
    setTabOrder(control(box), calc);
}

}
