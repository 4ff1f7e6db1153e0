#include "reminders/frmRecordFields.h"

#include "platform/controls/layout.h"
#include "session/state.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>

// Registers the built-in pictures; by the tool's own rule outside of any namespace.
static void initialisePictures() { Q_INIT_RESOURCE(resources); }

namespace vorel {

using namespace Qt::StringLiterals;
namespace layout = controls::layout;

namespace {

constexpr int dateWidth = 18 * layout::unit;

QFormLayout *formColumn()
{
    auto *made = new QFormLayout;
    made->setContentsMargins(0, 0, 0, 0);
    made->setHorizontalSpacing(2 * layout::unit);
    made->setVerticalSpacing(layout::unit);
    made->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    made->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return made;
}

// A field's line: the field, and what stands beside it.
QHBoxLayout *line(QWidget *parent)
{
    auto *made = new QHBoxLayout(parent);
    made->setContentsMargins(0, 0, 0, 0);
    made->setSpacing(layout::unit);
    return made;
}

}

void frmRecord::createFields()
{
    QString previous;
    for (const FieldRow &row : fieldTable()) {
        const QString name = row.control.toString();
        QWidget *widget = createField(row);
        widget->setObjectName(name);
        if (!row.spoken.isEmpty())
            widget->setAccessibleName(row.spoken.toString());
        m_controls.insert(name, widget);
        const bool shown = row.sections.contains(m_section.code);
        if (shown)
            bindField(row, widget);
        placeField(row, widget, previous);
        if (row.place == Place::Row)
            previous = name;
        setVisible_(name, shown && row.place != Place::Hidden);
    }
}

QLabel *frmRecord::createLabel(const FieldRow &row, QWidget *buddy)
{
    auto *label = new QLabel(row.label.toString(), this);
    label->setObjectName(row.labelName.toString());
    if (buddy->focusPolicy() != Qt::NoFocus)
        label->setBuddy(buddy);
    if (qobject_cast<QCheckBox *>(buddy))
        label->installEventFilter(this);        // a click on the words ticks the box
    m_controls.insert(label->objectName(), label);
    m_labels.insert(row.control.toString(), label);
    return label;
}

void frmRecord::placeField(const FieldRow &row, QWidget *widget, const QString &previous)
{
    if (row.place == Place::Beside) {
        m_beside.value(previous)->addWidget(widget);
        return;
    }
    if (row.place == Place::Hidden) {
        widget->hide();
        return;
    }
    if (row.place != Place::Row) {              // the panels are composed when all is made
        if (!row.label.isEmpty())
            createLabel(row, widget);
        return;
    }
    const QString name = row.control.toString();
    auto *frame = new QWidget(this);
    frame->setMinimumHeight(QLineEdit().sizeHint().height());     // one rhythm, ticks and captions included
    QHBoxLayout *beside = line(frame);
    m_beside.insert(name, beside);
    QLabel *label = createLabel(row, widget);
    if (row.kind == Kind::Date) {
        widget->setFixedWidth(dateWidth);
        widget->installEventFilter(this);
        auto *slot = new QWidget(frame);
        slot->setFixedWidth(4 * layout::unit);
        line(slot);
        beside->addWidget(widget);
        beside->addWidget(slot);
        beside->setAlignment(Qt::AlignLeft);
        m_slots.insert(name, slot);
    } else if (row.kind == Kind::Check) {
        beside->addWidget(widget, 0, Qt::AlignLeft);
    } else {
        if (row.kind == Kind::Money || row.kind == Kind::Time) {
            widget->setFixedWidth(dateWidth);
            beside->setAlignment(Qt::AlignLeft);
        } else if (row.kind == Kind::Caption) {
            widget->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);    // a long path widens nothing
        }
        beside->addWidget(widget);
    }
    m_fields->addRow(label, frame);
}

void frmRecord::createButtons()
{
    struct ButtonRow {
        const char16_t *name, *caption, *icon, *tip;
        const char16_t *beside;     // the field that it stands beside, or ""
    };
    static constexpr ButtonRow rows[] = {
        {u"cmdNew", u"&New", u"document-new", u" Adds a new Record ", u""},
        {u"cmdReplicate", u"&Replicate", u"edit-copy", u" Makes a copy of this Record ", u""},
        {u"cmdDelete", u"De&lete", u"edit-delete", u" Deletes this Record and its series ", u""},
        {u"cmdSchedule", u"Fre&quency", u"view-refresh", u" Shows or hides the Frequency ", u""},
        {u"cmdUpdate", u"&Update", u"document-save", u" Saves this Record ", u""},
        {u"cmdClose", u"Cl&ose", u"window-close", u"", u""},
        {u"cmdCalc", u"", u"view-calendar-day", u"Choose a date (Alt+Down)", u""},
        {u"cmdWebsite", u"&Visit", u"internet-web-browser", u" Opens the Website ", u"txtWebsite"},
        {u"cmdEmail", u"&Write", u"mail-message-new", u" Writes an E-mail ", u"txtEmail"},
        {u"cmdPicture", u"&Picture...", u"insert-image", u" Selects a Picture ", u"lblFilename"},
        {u"cmdRemove", u"Re&move", u"", u" Removes the Picture ", u"lblFilename"},
        {u"cmdApply", u"Appl&y", u"dialog-ok-apply", u"Applies the new Due Date", u""},
        {u"cmdCancel", u"&Cancel", u"edit-undo", u"Reverts back to initial Date", u""},
    };
    const auto text = [](const char16_t *words) { return QString::fromUtf16(words); };
    for (const ButtonRow &row : rows) {
        QAbstractButton *made = controls::button(text(row.name), text(row.caption), text(row.icon), text(row.tip));
        made->setParent(this);
        if (auto *push = qobject_cast<QPushButton *>(made))
            push->setAutoDefault(false);
        m_controls.insert(made->objectName(), made);
        if (QBoxLayout *beside = m_beside.value(text(row.beside)))
            beside->addWidget(made);
    }
    auto *update = control<QPushButton>(u"cmdUpdate"_s);
    update->setDefault(true);
    auto *calc = control<QPushButton>(u"cmdCalc"_s);
    calc->setFixedWidth(4 * layout::unit);
    calc->setText({});
    calc->setAccessibleName(u"Choose a date"_s);
    calc->setIcon(QIcon::fromTheme(u"view-calendar-day"_s, QIcon(u":/pictures/date.svg"_s)));
    moveCalcBeside(u"txtDate"_s);
    setVisible_(u"cmdSchedule"_s, m_section.kind != ReminderKind::Event);
}

QLayout *frmRecord::createOptions()
{
    static constexpr const char16_t *captions[] = {
        u"Each Calendar Month", u"Every Quarter (3 months)", u"Annually (12 months)", u"of each Month", u"Every"};
    auto *days = new QComboBox;
    days->setObjectName(u"cboDays"_s);
    days->setAccessibleName(u"Every so many days"_s);
    days->setEditable(true);
    days->setInsertPolicy(QComboBox::NoInsert);
    days->addItems({u"1"_s, u"2"_s, u"7"_s, u"10"_s, u"14"_s, u"21"_s, u"28"_s, u"30"_s, u"60"_s, u"90"_s});
    days->setCurrentIndex(-1);
    days->clearEditText();
    m_controls.insert(days->objectName(), days);

    m_options = new QButtonGroup(this);
    const auto option = [this](int index) {
        const QString caption = QString::fromUtf16(captions[index]);
        // The weekday option's words come after its two lists.
        auto *made = new QRadioButton(index == 3 ? QString() : caption, this);
        made->setObjectName(u"optPeriod(%1)"_s.arg(index));
        made->setAccessibleName(caption);
        m_options->addButton(made, index);
        m_controls.insert(made->objectName(), made);
        return made;
    };
    return layout::Column({
        option(0),
        option(1),
        option(2),
        layout::Row({option(3), control<QWidget>(u"cboDay"_s), control<QWidget>(u"cboWeekDay"_s),
                     new QLabel(QString::fromUtf16(captions[3])), layout::Stretch{}}),
        layout::Row({option(4), days, new QLabel(u"Days"_s), layout::Stretch{}}),
    });
}

QLayout *frmRecord::createPeriods()
{
    QFormLayout *made = formColumn();
    for (const auto &[field, label] : {std::pair{u"txtPeriodMonth"_s, u"lblPeriodMonth"_s}, {u"txtPeriodDays"_s, u"lblPeriodDays"_s}}) {
        control<QWidget>(field)->setFixedWidth(8 * layout::unit);
        made->addRow(control<QLabel>(label), control<QWidget>(field));
    }
    for (const auto &[name, words] : {std::pair{u"lblNextDate"_s, u"Next due:"_s}, {u"lblInitialDate"_s, u"Initial date:"_s}}) {
        auto *shown = new QLabel;
        shown->setObjectName(name);
        shown->setTextFormat(Qt::PlainText);
        m_controls.insert(name, shown);
        made->addRow(words, shown);
    }
    return made;
}

QWidget *frmRecord::createFrequencyPanel()
{
    QLayout *options = createOptions();
    QLayout *keys = layout::Row({layout::Stretch{}, control<QWidget>(u"cmdApply"_s), control<QWidget>(u"cmdCancel"_s)});
    QWidget *panel = layout::Group(u"fraBill"_s, m_section.frequencyTitle.toString(),
                                   layout::Column({options, createPeriods(), keys}));
    m_controls.insert(panel->objectName(), panel);
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
    m_controls.insert(panel->objectName(), panel);
    m_controls.insert(category->objectName(), category);
    QWidget *text = control<QWidget>(u"rtbFullDetails"_s);
    text->setMinimumHeight(12 * layout::unit);
    panel->setLayout(layout::Column({category, control<QWidget>(u"lblFullDetails"_s), text}));
    panel->setVisible(m_section.kind == ReminderKind::Event);
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
    m_controls.insert(picture->objectName(), picture);
    ShowPic({});
    return picture;
}

void frmRecord::composeScreen()
{
    initialisePictures();
    setWindowTitle(m_section.title.toString());
    m_fields = formColumn();
    createFields();
    createButtons();

    auto *right = new QVBoxLayout;
    right->setSpacing(layout::unit);
    right->addWidget(createPicture());
    right->addWidget(createFrequencyPanel());
    right->addWidget(createDetailsPanel(), 1);
    SetScheduler(m_section.kind != ReminderKind::Event);        // the first size allows for the open panel
    if (m_section.kind != ReminderKind::Event)
        right->addStretch(1);

    auto *body = new QWidget;
    auto *columns = new QHBoxLayout(body);
    layout::setMargins(columns, 2 * layout::unit);
    columns->setSpacing(3 * layout::unit);
    columns->addLayout(m_fields, 3);
    columns->addLayout(right, 2);
    auto *scroll = new QScrollArea;
    scroll->setObjectName(u"body"_s);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(body);

    auto *navigator = new controls::DataNavigator(m_data);
    const auto named = [this](const QString &name) { return control<QWidget>(name); };
    QLayout *keys = layout::Row({navigator, layout::Space{2 * layout::unit}, named(u"cmdNew"_s), named(u"cmdReplicate"_s),
                                 named(u"cmdDelete"_s), named(u"cmdSchedule"_s), layout::Stretch{},
                                 named(u"cmdUpdate"_s), named(u"cmdClose"_s)});
    layout::setMargins(keys, 2 * layout::unit);
    auto *rule = new QFrame;
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    auto *screenColumn = new QVBoxLayout(this);
    screenColumn->setContentsMargins(0, 0, 0, 0);
    screenColumn->setSpacing(0);
    screenColumn->addWidget(scroll, 1);
    screenColumn->addWidget(rule);
    screenColumn->addLayout(keys);
    orderTabs(navigator);

    const QSize wanted = body->sizeHint() + QSize(0, keys->sizeHint().height() + layout::unit);
    SetScheduler(false);
    resize(std::max({wanted.width(), keys->sizeHint().width(), 104 * layout::unit}), wanted.height());
}

// The Tab key goes as the screen reads: the fields with what stands beside them, the panels, the navigator, the keys.
void frmRecord::orderTabs(const QWidget *navigator)
{
    QWidgetList chain;
    const auto add = [&](const QStringList &names) {
        for (const QString &name : names)
            chain += control<QWidget>(name);
    };
    for (const FieldRow &row : fieldTable()) {
        const QString name = row.control.toString();
        const QBoxLayout *beside = m_beside.value(name);
        if (!beside)
            continue;
        add({name});
        for (QPushButton *key : beside->parentWidget()->findChildren<QPushButton *>(Qt::FindDirectChildrenOnly))
            chain += key;
    }
    add({u"optPeriod(0)"_s, u"optPeriod(1)"_s, u"optPeriod(2)"_s, u"optPeriod(3)"_s, u"cboDay"_s, u"cboWeekDay"_s,
         u"optPeriod(4)"_s, u"cboDays"_s, u"txtPeriodMonth"_s, u"txtPeriodDays"_s, u"cmdApply"_s, u"cmdCancel"_s,
         u"rtbFullDetails"_s});
    for (QAbstractButton *step : navigator->findChildren<QAbstractButton *>())
        chain += step;
    add({u"cmdNew"_s, u"cmdReplicate"_s, u"cmdDelete"_s, u"cmdSchedule"_s, u"cmdUpdate"_s, u"cmdClose"_s});
    for (qsizetype i = 1; i < chain.size(); ++i)
        setTabOrder(chain[i - 1], chain[i]);
    setTabOrder(control<QWidget>(m_calcBox), control<QWidget>(u"cmdCalc"_s));
}

void frmRecord::moveCalcBeside(const QString &box)
{
    auto *calc = control<QWidget>(u"cmdCalc"_s);
    if (m_calcBox == box)
        return;
    m_calcBox = box;
    QWidget *slot = m_slots.value(box);
    slot->layout()->addWidget(calc);
    calc->show();
    setTabOrder(control<QWidget>(box), calc);
}

}
