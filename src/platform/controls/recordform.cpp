#include "platform/controls/recordform.h"

#include "platform/basic/prompts.h"
#include "platform/controls/elidedlabel.h"
#include "platform/controls/fieldadapter.h"
#include "platform/controls/keyrow.h"
#include "platform/controls/layout.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>

namespace vorel::controls {

using namespace Qt::StringLiterals;

namespace {

constexpr int errObjectRequired = 424;
constexpr int grows = 100;                  // of a field in its line, beside the stretch at the end

bool bearsItsLabel(const Field &field)
{
    return field.kind == FieldKind::Check && field.labelName.isEmpty();
}

QString labelName(const Field &field)
{
    return field.labelName.isEmpty() ? u"lbl"_s + field.control.mid(3) : field.labelName;
}

QString withoutMnemonic(QString text)
{
    text.remove(u'&');
    while (text.endsWith(u':'))
        text.chop(1);
    return text;
}

int lineHeight()
{
    return QLineEdit().sizeHint().height();
}

}

RecordForm::RecordForm(const QString &name, const QString &dataName, QWidget *parent)
    : Form(name, parent), m_data(new DataControl(this)), m_state(new ElidedLabel(this))
{
    m_data->setObjectName(dataName);
    m_data->setConnect(u"Access"_s);
    m_state->setObjectName(u"lblState"_s);
    m_state->setTextFormat(Qt::PlainText);
    keep(m_state);
    on(m_data, &DataControl::Error, handlers(), [this](int, const QString &text) { showRefusal(text); });
    on(m_data, &DataControl::DirtyChanged, handlers(), [this](bool dirty) {
        setWindowModified(dirty);
        if (dirty)
            m_state->clear();
    });
    on(m_data, &DataControl::Reposition, handlers(), [this] { m_state->clear(); });
}

void RecordForm::createFields(const std::vector<Field> &fields)
{
    for (std::size_t i = 0; i < fields.size(); ++i)
        createField(fields[i], i + 1 < fields.size() && fields[i + 1].beside);
}

void RecordForm::createField(const Field &wanted, bool opensLine)
{
    const Field &field = m_fields.emplace_back(wanted);
    QWidget *widget = createWidget(field);
    widget->setObjectName(field.control);
    if (!field.spoken.isEmpty())
        widget->setAccessibleName(field.spoken);
    keep(widget);
    if (!field.field.isEmpty()) {
        BindOptions options = bindOptions(field);
        options.caption = withoutMnemonic(field.spoken.isEmpty() ? field.label : field.spoken);
        m_data->bind(widget, field.field, std::move(options));
    }
    if (field.kind == FieldKind::Hidden) {
        widget->hide();
        return;
    }
    m_fieldOf.insert(widget, &field);
    widget->installEventFilter(this);
    if (auto *combo = qobject_cast<QComboBox *>(widget); combo && combo->lineEdit()) {
        m_fieldOf.insert(combo->lineEdit(), &field);
        combo->lineEdit()->installEventFilter(this);
    }
    if (field.rules & FieldRule::Grave)
        keepGraveAccents(widget);
    placeField(field, widget, opensLine);
}

QWidget *RecordForm::createWidget(const Field &field)
{
    return editorOf(field.kind).create(field, this);
}

BindOptions RecordForm::bindOptions(const Field &field) const
{
    const auto bind = editorOf(field.kind).bind;
    return bind ? bind() : BindOptions{};
}

// The field's line: the field itself, with the buttons that belong to it and with the fields beside it.
QWidget *RecordForm::createLine(const Field &field, QWidget *widget, bool opensLine)
{
    using Width = FieldEditor::Width;
    QWidgetList buttons = buttonsBeside(field);
    if (!field.button.isEmpty()) {
        QPushButton *button = hasControl(field.button)
            ? control<QPushButton>(field.button)
            : addButton({field.button, {}, u"view-calendar-day"_s, u"Choose a date (Alt+Down)"_s});
        on(button, &QPushButton::clicked, handlers(), [this, &field] { pickDate(field); });
        buttons.prepend(button);
    }
    const Width width = editorOf(field.kind).width;
    m_line = nullptr;
    if (buttons.isEmpty() && !opensLine && width == Width::All && field.kind != FieldKind::Caption)
        return widget;
    auto *line = new QWidget(this);
    line->setMinimumHeight(lineHeight());               // one rhythm, check boxes and captions included
    line->setSizePolicy(QSizePolicy::Preferred, widget->sizePolicy().verticalPolicy() == QSizePolicy::Expanding
                                                    ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    m_line = new QHBoxLayout(line);
    layout::setMargins(m_line, 0);
    m_line->setSpacing(layout::unit);
    m_line->addWidget(widget, width == Width::All || width == Width::Middle ? grows : 0);
    for (QWidget *button : std::as_const(buttons))
        m_line->addWidget(button);
    m_line->addStretch(width == Width::All ? 0 : 1);
    return line;
}

QLabel *RecordForm::createLabel(const Field &field, QWidget *widget)
{
    auto *label = new QLabel(field.label, this);
    label->setObjectName(labelName(field));
    // Beside the first line of its field, however high that is.
    const int height = lineHeight();
    label->setMinimumHeight(height);
    label->setContentsMargins(0, (height - label->fontMetrics().height()) / 2, 0, 0);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    if (widget->focusPolicy() != Qt::NoFocus)
        label->setBuddy(widget);
    if (widget->accessibleName().isEmpty())
        widget->setAccessibleName(withoutMnemonic(field.label));
    if (field.kind == FieldKind::Check)
        label->installEventFilter(this);                // a click on the words ticks the box
    keep(label);
    m_labels.insert(field.control, label);
    return label;
}

void RecordForm::placeField(const Field &field, QWidget *widget, bool opensLine)
{
    QLabel *label = field.label.isEmpty() || bearsItsLabel(field) ? nullptr : createLabel(field, widget);
    if (field.beside && m_line) {
        int at = m_line->count() - 1;                   // before the stretch
        if (label)
            m_line->insertWidget(at++, label);
        if (field.kind == FieldKind::Caption)           // it shrinks before everything else on the line
            widget->setMinimumWidth(10 * fontMetrics().averageCharWidth());
        m_line->insertWidget(at++, widget, field.kind == FieldKind::Line || field.kind == FieldKind::List ? grows : 0);
        m_lines.insert(field.control, widget);
        if (field.button.isEmpty())
            return;
        QPushButton *button = addButton({field.button, {}, u"view-calendar-day"_s, u"Choose a date (Alt+Down)"_s});
        on(button, &QPushButton::clicked, handlers(), [this, &field] { pickDate(field); });
        m_line->insertWidget(at, button);
        return;
    }
    QWidget *line = createLine(field, widget, opensLine);
    m_lines.insert(field.control, line);
    QFormLayout *form = formOf(field);
    if (!form)
        return;
    if (label)
        form->addRow(label, line);
    else
        form->addRow(QString(), line);
}

void RecordForm::placeBeside(const QString &field, QWidget *widget)
{
    auto *row = qobject_cast<QHBoxLayout *>(lineOf(field)->layout());
    if (!row)
        throwNoControl(field + u" with a line"_s);
    row->insertWidget(row->count() - 1, widget);
}

QPushButton *RecordForm::addButton(const ScreenKey &key)
{
    auto *created = qobject_cast<QPushButton *>(controls::button(key.name, key.caption, key.icon, key.tip));
    created->setParent(this);
    if (key.caption.isEmpty()) {            // a desktop without that icon still shows what the button is for
        const auto own = key.icon == u"view-refresh" ? QStyle::SP_BrowserReload : QStyle::SP_FileDialogDetailedView;
        created->setIcon(QIcon::fromTheme(key.icon, style()->standardIcon(own)));
        created->setText({});
    }
    keep(created);
    return created;
}

void RecordForm::keep(QWidget *widget)
{
    m_controls.insert(widget->objectName(), widget);
}

KeyRow *RecordForm::createKeyRow(const QStringList &left, const QStringList &right)
{
    const auto named = [this](const QStringList &names) {
        QWidgetList widgets;
        for (const QString &name : names)
            widgets += control<QWidget>(name);
        return widgets;
    };
    return new KeyRow(named(left), m_state, named(right), this);
}

QFormLayout *RecordForm::createFormLayout()
{
    auto *form = new QFormLayout;
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(2 * layout::unit);
    form->setVerticalSpacing(layout::unit);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignTop);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return form;
}

void RecordForm::chainTabs(const QWidgetList &widgets)
{
    QWidgetList chain;
    for (QWidget *widget : widgets) {
        if (widget && widget->focusPolicy() != Qt::NoFocus && !chain.contains(widget))
            chain += widget;
    }
    for (qsizetype i = 1; i < chain.size(); ++i)
        setTabOrder(chain[i - 1], chain[i]);
}

QWidgetList RecordForm::fieldChain() const
{
    QWidgetList chain;
    for (const Field &field : m_fields) {
        chain += m_controls.value(field.control);
        if (!field.button.isEmpty())
            chain += m_controls.value(field.button);
        QWidget *line = m_lines.value(field.control);
        if (!line || field.beside)
            continue;
        for (QPushButton *button : line->findChildren<QPushButton *>(Qt::FindDirectChildrenOnly)) {
            if (!fieldOf(button))
                chain += button;
        }
    }
    return chain;
}

QString RecordForm::memberName(const QString &array, int index)
{
    return array + u'(' + QString::number(index) + u')';
}

const Field *RecordForm::fieldOf(const QObject *widget) const
{
    return m_fieldOf.value(widget);
}

QString RecordForm::text(const QString &name) const
{
    return adapter::text(*control<QWidget>(name));
}

void RecordForm::setText(const QString &name, const QString &newText)
{
    auto *widget = control<QWidget>(name);
    if (adapter::text(*widget) == newText)
        return;
    adapter::setText(*widget, newText);
    m_data->contentChanged(widget);             // a label has no signal of its own
}

bool RecordForm::ticked(const QString &name) const
{
    return control<QAbstractButton>(name)->isChecked();
}

void RecordForm::setTicked(const QString &name, bool on)
{
    control<QAbstractButton>(name)->setChecked(on);
}

QWidget *RecordForm::lineOf(const QString &field) const
{
    if (QWidget *line = m_lines.value(field))
        return line;
    throwNoControl(field);
}

QLabel *RecordForm::labelOf(const QString &field) const
{
    return m_labels.value(field);
}

void RecordForm::showField(const QString &field, bool visible)
{
    control<QWidget>(field)->setVisible(visible);
    if (QWidget *line = m_lines.value(field))       // a hidden field has none
        line->setVisible(visible);
    if (QLabel *label = labelOf(field))
        label->setVisible(visible);
}

void RecordForm::onClick(const QString &button, std::function<void()> handler)
{
    on(control<QAbstractButton>(button), &QAbstractButton::clicked, handlers(), [handler = std::move(handler)] { handler(); });
}

void RecordForm::addShortcut(const QKeySequence &keys, const QString &button)
{
    auto *target = control<QAbstractButton>(button);
    connect(new QShortcut(keys, this), &QShortcut::activated, target, &QAbstractButton::click);
}

void RecordForm::useRecordKeys()
{
    addShortcut(QKeySequence::New, u"cmdNew"_s);
    addShortcut(QKeySequence::Save, u"cmdUpdate"_s);
    on(new QShortcut(Qt::ALT | Qt::Key_Left, this), &QShortcut::activated, handlers(), [this] { m_data->MovePrevious(); });
    on(new QShortcut(Qt::ALT | Qt::Key_Right, this), &QShortcut::activated, handlers(), [this] { m_data->MoveNext(); });
    onClick(u"cmdClose"_s, [this] { Close(); });
}

void RecordForm::setRecordTitle(const QString &screen, const QString &record)
{
    QString name = record.simplified();
    constexpr int longest = 60;             // longer titles are cut by the desktop at a place of its own
    if (name.size() > longest)
        name = name.left(longest - 1) + QChar(0x2026);
    QString title = name.isEmpty() ? screen : screen + u" - "_s + name;
    setWindowTitle(title.replace(u"[*]"_s, u"[*][*]"_s) + u"[*]"_s);       // doubled, it is shown as it is
}

void RecordForm::showState(const QString &words)
{
    m_state->setText(words);
}

// What the user typed stays; the cursor is in the field before the box opens, so that it is there when it closes.
void RecordForm::showRefusal(const QString &text)
{
    if (QWidget *widget = m_data->refusedWidget()) {
        revealField(widget);
        widget->setFocus(Qt::OtherFocusReason);
    }
    basic::MsgBox(text, {}, basic::Icon::Exclamation);
}

// By change, not by key: a text is pasted, dropped and completed too. A stored text is shown as it is.
void RecordForm::keepGraveAccents(QWidget *widget)
{
    auto *combo = qobject_cast<QComboBox *>(widget);
    if (auto *edit = combo ? combo->lineEdit() : qobject_cast<QLineEdit *>(widget)) {
        on(edit, &QLineEdit::textChanged, handlers(), [this, edit](const QString &text) {
            if (m_data->isFilling() || !text.contains(u'\''))
                return;
            const int at = edit->cursorPosition();
            QString grave = text;
            edit->setText(grave.replace(u'\'', u'`'));
            edit->setCursorPosition(at);
        });
        return;
    }
    auto *lines = qobject_cast<QPlainTextEdit *>(widget);
    if (!lines)
        return;
    on(lines, &QPlainTextEdit::textChanged, handlers(), [this, lines] {
        if (m_data->isFilling())
            return;
        for (QTextCursor found = lines->document()->find(u"'"_s); !found.isNull(); found = lines->document()->find(u"'"_s)) {
            found.joinPreviousEditBlock();
            found.insertText(u"`"_s);
            found.endEditBlock();
        }
    });
}

bool RecordForm::filterKey(const Field &field, QEvent *event)
{
    const auto *key = static_cast<QKeyEvent *>(event);
    if (field.rules & FieldRule::OneLine && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter))
        return true;
    if (field.kind == FieldKind::Date && (key->key() == Qt::Key_F4 || (key->key() == Qt::Key_Down && key->modifiers() & Qt::AltModifier))) {
        basic::Trap([&] { pickDate(field); });
        return true;
    }
    return false;
}

// The text's own menu, with the field's action before it.
bool RecordForm::filterAction(const Field &field, QObject *watched, QEvent *event)
{
    const auto run = [this, &field] { basic::Trap([&] { runAction(field); }); };
    if (event->type() == QEvent::MouseButtonDblClick && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
        run();
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->modifiers().testFlag(Qt::ControlModifier) && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)) {
            run();
            return true;
        }
    }
    auto *edit = qobject_cast<QLineEdit *>(watched);
    if (event->type() != QEvent::ContextMenu || !edit)
        return false;
    const std::unique_ptr<QMenu> menu(edit->createStandardContextMenu());
    auto *action = new QAction(field.action, menu.get());
    action->setShortcut(Qt::CTRL | Qt::Key_Return);     // shown; the key itself is the field's
    action->setEnabled(edit->isEnabled() && !edit->text().trimmed().isEmpty());
    connect(action, &QAction::triggered, this, run);
    QAction *const first = menu->actions().value(0);
    menu->insertAction(first, action);
    menu->insertSeparator(first);
    menu->exec(static_cast<QContextMenuEvent *>(event)->globalPos());
    return true;
}

bool RecordForm::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonRelease && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
        const auto *label = qobject_cast<QLabel *>(watched);
        if (auto *box = label ? qobject_cast<QAbstractButton *>(label->buddy()) : nullptr; box && box->isEnabled()) {
            box->setFocus();
            box->click();
        }
    }
    if (const Field *field = fieldOf(watched)) {
        if (!field->action.isEmpty() && filterAction(*field, watched, event))
            return true;
        if (event->type() == QEvent::KeyPress && filterKey(*field, event))
            return true;
        if (event->type() == QEvent::MouseButtonDblClick && field->rules & FieldRule::DoubleClick) {
            basic::Trap([&] { pickDate(*field); });
            return true;
        }
    }
    return Form::eventFilter(watched, event);
}

void RecordForm::throwNoControl(const QString &name) const
{
    throw basic::Error(errObjectRequired, objectName() + u" has no control "_s + name);
}

}
