#include "platform/controls/fieldeditor.h"

#include "platform/controls/elidedlabel.h"
#include "platform/controls/layout.h"
#include "platform/controls/richtextbox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRegularExpressionValidator>

namespace vorel::controls {

using namespace Qt::StringLiterals;
using Width = FieldEditor::Width;

namespace {

constexpr int narrow = 18 * layout::unit, middle = 40 * layout::unit;

QWidget *createLine(const Field &, QWidget *parent)
{
    return new QLineEdit(parent);
}

QWidget *createLines(const Field &field, QWidget *parent)
{
    auto *edit = new QPlainTextEdit(parent);
    edit->setTabChangesFocus(true);
    edit->setFixedHeight(edit->fontMetrics().lineSpacing() * field.lines + 2 * layout::unit);
    return edit;
}

QWidget *createCombo(QWidget *parent, bool editable)
{
    auto *combo = new QComboBox(parent);
    combo->setEditable(editable);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setMaxVisibleItems(16);
    combo->setMaximumWidth(middle);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);   // long choices must not widen the screen
    combo->setMinimumContentsLength(6);
    return combo;
}

QWidget *createCheck(const Field &field, QWidget *parent)
{
    return new QCheckBox(field.labelName.isEmpty() ? field.label : QString(), parent);
}

QWidget *createRich(const Field &, QWidget *parent)
{
    auto *box = new RichTextBox(parent);
    box->setMinimumHeight(15 * layout::unit);
    QSizePolicy grows(QSizePolicy::Expanding, QSizePolicy::Expanding);
    grows.setVerticalStretch(1);
    box->setSizePolicy(grows);
    return box;
}

QWidget *createNarrow(const Field &field, QWidget *parent)
{
    auto *edit = new QLineEdit(parent);
    edit->setFixedWidth(narrow);
    if (field.kind != FieldKind::Date)
        edit->setAlignment(Qt::AlignRight);
    if (field.kind == FieldKind::Digits)
        edit->setValidator(new QRegularExpressionValidator(QRegularExpression(u"[0-9]*"_s), edit));
    return edit;
}

QWidget *createCaption(const Field &, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);     // a long text must not widen the screen
    return label;
}

BindOptions linesWithCrLf()
{
    BindOptions options;
    options.store = [](const QString &text) {
        QString lines = text;
        return dao::Value(lines.replace(u'\n', u"\r\n"_s));
    };
    return options;
}

}

const FieldEditor &editorOf(FieldKind kind)
{
    static const FieldEditor line{createLine}, lines{createLines, linesWithCrLf},
        list{[](const Field &, QWidget *parent) { return createCombo(parent, true); }, nullptr, Width::Middle},
        choice{[](const Field &, QWidget *parent) { return createCombo(parent, false); }, nullptr, Width::Middle},
        check{createCheck, nullptr, Width::Own, false}, rich{createRich}, number{createNarrow, nullptr, Width::Narrow},
        path{[](const Field &, QWidget *parent) -> QWidget * { return new ElidedLabel(parent); }, nullptr, Width::All, false},
        caption{createCaption, nullptr, Width::All, false},
        hidden{[](const Field &, QWidget *parent) -> QWidget * { return new QLabel(parent); }, nullptr, Width::Own, false};
    switch (kind) {
    case FieldKind::Line: return line;
    case FieldKind::Lines: return lines;
    case FieldKind::List: return list;
    case FieldKind::Choice: return choice;
    case FieldKind::Check: return check;
    case FieldKind::Rich: return rich;
    case FieldKind::Date:
    case FieldKind::Amount:
    case FieldKind::Digits: return number;
    case FieldKind::Path: return path;
    case FieldKind::Caption: return caption;
    case FieldKind::Hidden: return hidden;
    }
    Q_UNREACHABLE();
}

}
