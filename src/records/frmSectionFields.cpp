#include "records/frmSection.h"

#include "calendar/picker.h"
#include "platform/basic/format.h"
#include "platform/controls/colours.h"
#include "platform/controls/elidedlabel.h"
#include "platform/controls/layout.h"
#include "platform/controls/look.h"
#include "platform/controls/picturebox.h"
#include "platform/controls/richtextbox.h"
#include "records/frmSectionPanel.h"
#include "records/inventory.h"
#include "session/frmColours.h"
#include "session/shared.h"
#include "utilities/frmInformationFormat.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

// The fields of the section's table: what each kind is made of, how it is bound, what is typed into it.
namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;
using records::Field;
using records::FieldKind;
namespace layout = controls::layout;

namespace {

constexpr int narrow = 18 * layout::unit, middle = 40 * layout::unit;
constexpr int linesShown = 4;

basic::Value storedLines(const QString &text)
{
    QString lines = text;
    return lines.replace(u'\n', u"\r\n"_s);
}

QString labelName(const Field &field)
{
    return field.labelName.isEmpty() ? u"lbl"_s + field.control.mid(3).toString() : field.labelName.toString();
}

}

void frmSection::createFields()
{
    for (const Field &field : m_design.fields) {
        QWidget *widget = createWidget(field);
        widget->setObjectName(field.control.toString());
        keep(widget);
        m_data->bind(widget, field.field.toString(), bindOptions(field));
        if (field.kind == FieldKind::Hidden) {
            widget->hide();
            continue;
        }
        m_fieldOf.insert(widget, &field);
        widget->installEventFilter(this);
        if (auto *combo = qobject_cast<QComboBox *>(widget)) {
            m_fieldOf.insert(combo->lineEdit(), &field);
            combo->lineEdit()->installEventFilter(this);
        }
        placeField(field, widget);
    }
}

QWidget *frmSection::createWidget(const Field &field)
{
    switch (field.kind) {
    case FieldKind::Lines: {
        auto *made = new QPlainTextEdit(this);
        made->setTabChangesFocus(true);
        made->setFixedHeight(made->fontMetrics().lineSpacing() * linesShown + 2 * layout::unit);
        return made;
    }
    case FieldKind::List: {
        auto *made = new QComboBox(this);
        made->setEditable(true);
        made->setInsertPolicy(QComboBox::NoInsert);
        made->setMaxVisibleItems(16);
        made->setMaximumWidth(middle);
        return made;
    }
    case FieldKind::Check:
        return new QCheckBox(field.label.toString(), this);
    case FieldKind::Rich: {
        auto *made = new controls::RichTextBox(this);
        made->setMinimumHeight(15 * layout::unit);
        QSizePolicy grows(QSizePolicy::Expanding, QSizePolicy::Expanding);
        grows.setVerticalStretch(1);
        made->setSizePolicy(grows);
        useFormatMenu(made);
        holdMainTimer(made);
        return made;
    }
    case FieldKind::Sound:
    case FieldKind::Picture:
        return new controls::ElidedLabel(this);
    case FieldKind::Hidden:
        return new QLabel(this);
    case FieldKind::Line:
        return new QLineEdit(this);
    case FieldKind::Date:
    case FieldKind::Amount:
    case FieldKind::Digits:
        break;
    }
    auto *made = new QLineEdit(this);
    made->setFixedWidth(narrow);
    if (field.kind != FieldKind::Date)
        made->setAlignment(Qt::AlignRight);
    if (field.kind == FieldKind::Digits)
        made->setValidator(new QRegularExpressionValidator(QRegularExpression(u"[0-9]{0,4}"_s), made));
    return made;
}

controls::BindOptions frmSection::bindOptions(const Field &field) const
{
    switch (field.kind) {
    case FieldKind::Date:
        return {[](const basic::Value &stored) { return records::shownDate(stored.text()); },
                [](const QString &text) { return basic::Value(records::shownDate(text)); }};
    case FieldKind::Lines:
        return {{}, storedLines};
    case FieldKind::Amount:
        return {[](const basic::Value &stored) { return basic::Format(stored, state().settings.gNumberFormat); }, {}};
    default:
        return {};
    }
}

// The field's line on its panel: the field itself, with the keys that belong to it.
QWidget *frmSection::withKeys(const Field &field, QWidget *widget)
{
    QWidgetList keys;
    if (field.kind == FieldKind::Picture) {
        keys += addButton(u"cmdPicture"_s, u"&Picture..."_s, u"insert-image"_s, u" Selects a Picture "_s);
        on(control<QPushButton>(u"cmdPicture"_s), &QPushButton::clicked, this, [this] { GetFilePath(); });
    } else if (field.kind == FieldKind::Sound) {
        const QString name = field.control.toString();
        keys += addButton(u"cmdSound"_s, u"&Sound..."_s, u"folder-music"_s, u" Selects a Sound File "_s);
        keys += addButton(u"cmdPlay"_s, u"Pla&y"_s, u"media-playback-start"_s, u" Plays the Sound File "_s);
        on(control<QPushButton>(u"cmdSound"_s), &QPushButton::clicked, this, [this, name] { chooseSound(name); });
        on(control<QPushButton>(u"cmdPlay"_s), &QPushButton::clicked, this, [this, name] { playSoundFile(text(name).trimmed()); });
    } else if (!field.button.isEmpty()) {
        const QString name = field.button.toString();
        keys += addButton(name, {}, u"view-calendar-day"_s, u"Choose a date (Alt+Down)"_s);
        on(control<QPushButton>(name), &QPushButton::clicked, this, [this, &field] { pickDate(field); });
    }
    if (keys.isEmpty() && widget->maximumWidth() > middle && field.kind != FieldKind::Check)
        return widget;
    auto *line = new QWidget(this);
    line->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);     // room to spare belongs to the boxes that grow
    auto *row = new QHBoxLayout(line);
    layout::setMargins(row, 0);
    row->setSpacing(layout::unit);
    row->addWidget(widget, field.kind == FieldKind::Picture || field.kind == FieldKind::Sound ? 1 : 0);
    if (field.kind == FieldKind::List)
        row->setStretch(0, 1);
    for (QWidget *key : keys)
        row->addWidget(key);
    row->addStretch(field.kind == FieldKind::List ? 1 : 0);
    if (field.kind == FieldKind::Date || field.kind == FieldKind::Amount || field.kind == FieldKind::Digits || field.kind == FieldKind::Check)
        row->addStretch(1);
    return line;
}

QFormLayout *frmSection::formOf(const Field &field)
{
    const QString name = field.group.toString();
    if (name.isEmpty())
        return panel(field.panel.toString())->form();
    if (QFormLayout *form = m_groups.value(name))
        return form;
    QString title;
    for (const records::Group &group : m_design.groups) {
        if (group.name == field.group)
            title = group.title.toString();
    }
    QFormLayout *form = SectionPanel::makeForm();
    QWidget *box = layout::Group(name, title, form);
    box->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    keep(box);
    panel(field.panel.toString())->form()->addRow(box);
    m_groups.insert(name, form);
    return form;
}

void frmSection::placeField(const Field &field, QWidget *widget)
{
    const QString name = field.control.toString();
    QWidget *line = withKeys(field, widget);
    m_lines.insert(name, line);
    if (field.kind == FieldKind::Check) {
        formOf(field)->addRow(QString(), line);
        return;
    }
    auto *label = new QLabel(field.label.toString(), this);
    label->setObjectName(labelName(field));
    // Beside the first line of its field, however high that is.
    const int lineHeight = QLineEdit().sizeHint().height();
    label->setMinimumHeight(lineHeight);
    label->setContentsMargins(0, (lineHeight - label->fontMetrics().height()) / 2, 0, 0);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    if (widget->focusPolicy() != Qt::NoFocus)
        label->setBuddy(widget);
    widget->setAccessibleName(label->text().remove(u'&'));
    keep(label);
    m_labels.insert(name, label);
    formOf(field)->addRow(label, line);
}

// More than the field can hold is not taken in.
void frmSection::limitTexts()
{
    for (const Field &field : m_design.fields) {
        auto *edit = control<QLineEdit>(field.control.toString());
        if (auto *combo = control<QComboBox>(field.control.toString()))
            edit = combo->lineEdit();
        if (!edit || field.kind == FieldKind::Date)
            continue;
        for (const dao::RecordsetField &column : m_data->Recordset().Fields()) {
            if (column.Type == dao::dbText && column.Name.compare(field.field, Qt::CaseInsensitive) == 0)
                edit->setMaxLength(column.Size);
        }
    }
}

void frmSection::pickDate(const Field &field)
{
    OpenDatePicker(control<QWidget>(field.control.toString()), field.code.toString());
}

void frmSection::GetColours()
{
    QPalette own = QApplication::palette();
    if (m_back.isValid()) {
        const QColor words = controls::blackOrWhiteOn(m_back);
        own.setColor(QPalette::Window, m_back);
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
            own.setColor(group, QPalette::WindowText, words);
        own.setColor(QPalette::Disabled, QPalette::WindowText, controls::blend(m_back, words, 0.55));
    }
    setPalette(own);
    const QImage ground = groundPicture();
    for (SectionPanel *one : std::as_const(m_panels))
        one->setGround(own.color(QPalette::Window), ground);
    for (auto it = m_fieldOf.cbegin(); it != m_fieldOf.cend(); ++it) {
        auto *widget = qobject_cast<QWidget *>(it.key());
        paintField(widget, widget->hasFocus());
    }
}

void frmSection::paintField(QWidget *widget, bool focused)
{
    if (qobject_cast<QCheckBox *>(widget) || qobject_cast<QLabel *>(widget))
        return;
    QPalette own = QApplication::palette();
    QColor ground = focused ? m_focusColour : m_fieldColour;
    if (!ground.isValid())                  // the stock colours; yellow by itself is loud, and none for dark screens
        ground = own.color(QPalette::Base);
    if (focused && !m_focusColour.isValid())
        ground = controls::blend(ground, QColor(Qt::yellow), ground.lightness() > 128 ? 0.3 : 0.15);
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        own.setColor(group, QPalette::Base, ground);
        own.setColor(group, QPalette::Text, controls::readable(own.color(QPalette::Active, QPalette::Text), ground));
        own.setColor(group, QPalette::PlaceholderText, controls::placeholderOn(ground));
    }
    widget->setPalette(own);
}

bool frmSection::filterKey(const Field &field, QObject *watched, QEvent *event)
{
    const auto *key = static_cast<QKeyEvent *>(event);
    const bool plain = !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (field.oneLine && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter))
        return true;
    if (!field.button.isEmpty() && (key->key() == Qt::Key_F4 || (key->key() == Qt::Key_Down && key->modifiers() & Qt::AltModifier))) {
        basic::Trap([&] { pickDate(field); });
        return true;
    }
    if (!field.grave || !plain || !key->text().contains(u'\''))
        return false;
    const QString typed = graveApostrophes(key->text());
    if (auto *edit = qobject_cast<QLineEdit *>(watched))
        edit->insert(typed);
    else if (auto *lines = qobject_cast<QPlainTextEdit *>(watched))
        lines->insertPlainText(typed);
    return true;
}

bool frmSection::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_image && event->type() == QEvent::Resize && !m_ending)
        placePicInfo();
    const Field *field = m_fieldOf.value(watched);
    if (!field || m_ending)
        return Form::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        paintField(m_controls.value(field->control.toString()), event->type() == QEvent::FocusIn);
        break;
    case QEvent::KeyPress:
        if (filterKey(*field, watched, event))
            return true;
        break;
    case QEvent::InputMethod: {             // a dead key's apostrophe comes this way
        const auto *input = static_cast<QInputMethodEvent *>(event);
        if (!field->grave || !input->commitString().contains(u'\''))
            break;
        QInputMethodEvent changed(input->preeditString(), input->attributes());
        changed.setCommitString(graveApostrophes(input->commitString()), input->replacementStart(), input->replacementLength());
        QApplication::sendEvent(watched, &changed);
        return true;
    }
    case QEvent::MouseButtonDblClick:
        if (field->doubleClick) {
            basic::Trap([&] { pickDate(*field); });
            return true;
        }
        break;
    default:
        break;
    }
    return Form::eventFilter(watched, event);
}

}
