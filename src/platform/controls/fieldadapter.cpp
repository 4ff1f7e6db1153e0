#include "platform/controls/fieldadapter.h"

#include "platform/basic/convert.h"
#include "platform/controls/richtextbox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace vorel::controls::adapter {

using namespace Qt::StringLiterals;

namespace {

bool isTrue(const dao::Value &value)
{
    if (value.isNumber())
        return basic::CDbl(value) != 0;
    const QString text = value.text().trimmed();
    return text.compare(u"True"_s, Qt::CaseInsensitive) == 0 || text.toDouble() != 0;
}

void fillCombo(QComboBox &combo, const QString &text)
{
    const int index = combo.findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    combo.setCurrentIndex(index);
    if (combo.isEditable())
        combo.setEditText(text);
    else
        combo.setPlaceholderText(index < 0 ? text : QString());     // shown although the list lacks it
}

QString widgetText(const QWidget &widget)
{
    if (const auto *edit = qobject_cast<const QLineEdit *>(&widget))
        return edit->text();
    if (const auto *combo = qobject_cast<const QComboBox *>(&widget))
        return combo->currentText();
    if (const auto *label = qobject_cast<const QLabel *>(&widget))
        return label->text();
    if (const auto *plain = qobject_cast<const QPlainTextEdit *>(&widget))
        return plain->toPlainText();
    if (const auto *rich = qobject_cast<const RichTextBox *>(&widget))
        return rich->stored();
    if (const auto *edit = qobject_cast<const QTextEdit *>(&widget))
        return edit->toPlainText();
    return {};
}

void setWidgetText(QWidget &widget, const QString &text)
{
    if (auto *edit = qobject_cast<QLineEdit *>(&widget)) {
        edit->setText(text);
        edit->setCursorPosition(0);
    } else if (auto *combo = qobject_cast<QComboBox *>(&widget)) {
        fillCombo(*combo, text);
    } else if (auto *label = qobject_cast<QLabel *>(&widget)) {
        label->setTextFormat(Qt::PlainText);
        label->setText(text);
    } else if (auto *plain = qobject_cast<QPlainTextEdit *>(&widget)) {
        plain->setPlainText(text);
    } else if (auto *rich = qobject_cast<RichTextBox *>(&widget)) {
        rich->setStored(text);
    } else if (auto *lines = qobject_cast<QTextEdit *>(&widget)) {
        lines->setPlainText(text);
    }
}

}

QString content(const QWidget &widget)
{
    if (const auto *box = qobject_cast<const QCheckBox *>(&widget))
        return box->isChecked() ? u"-1"_s : u"0"_s;
    return widgetText(widget);
}

void fill(QWidget &widget, const dao::Value &value, const BindOptions &options)
{
    if (auto *box = qobject_cast<QCheckBox *>(&widget))
        box->setChecked(options.show ? options.show(value) == u"-1" : isTrue(value));
    else
        setWidgetText(widget, options.show && !value.isNull() ? options.show(value) : value.text());
}

dao::Value stored(const QWidget &widget, const BindOptions &options, dao::DataType type)
{
    const QString text = content(widget);
    if (options.store)
        return options.store(text);
    if (qobject_cast<const QCheckBox *>(&widget))
        return text == u"-1";
    const bool isText = type == dao::dbText || type == dao::dbMemo;
    if (!isText && text.trimmed().isEmpty())
        return {};
    return text;
}

}
