#include "platform/controls/fieldadapter.h"

#include "platform/basic/convert.h"
#include "platform/controls/richtextbox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>
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

}

QString text(const QWidget &widget)
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

void setText(QWidget &widget, const QString &text)
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

QString content(const QWidget &widget)
{
    if (const auto *box = qobject_cast<const QCheckBox *>(&widget))
        return box->isChecked() ? u"-1"_s : u"0"_s;
    return text(widget);
}

void fill(QWidget &widget, const dao::Value &value, const BindOptions &options)
{
    if (auto *box = qobject_cast<QCheckBox *>(&widget))
        box->setChecked(options.show ? options.show(value) == u"-1" : isTrue(value));
    else
        setText(widget, options.show && !value.isNull() ? options.show(value) : value.text());
}

dao::Value stored(const QWidget &widget, const BindOptions &options, dao::DataType type)
{
    const QString shown = content(widget);
    if (options.store)
        return options.store(shown);
    if (qobject_cast<const QCheckBox *>(&widget))
        return shown == u"-1";
    const bool isText = type == dao::dbText || type == dao::dbMemo;
    if (!isText && shown.trimmed().isEmpty())
        return {};
    return shown;
}

void onChange(QWidget &widget, QObject *context, const std::function<void()> &step)
{
    if (auto *box = qobject_cast<QCheckBox *>(&widget)) {
        QObject::connect(box, &QCheckBox::toggled, context, step);
    } else if (auto *edit = qobject_cast<QLineEdit *>(&widget)) {
        QObject::connect(edit, &QLineEdit::textChanged, context, step);
    } else if (auto *combo = qobject_cast<QComboBox *>(&widget)) {
        QObject::connect(combo, &QComboBox::currentTextChanged, context, step);
    } else if (auto *plain = qobject_cast<QPlainTextEdit *>(&widget)) {
        QObject::connect(plain, &QPlainTextEdit::textChanged, context, step);
    } else if (auto *lines = qobject_cast<QTextEdit *>(&widget)) {
        QObject::connect(lines, &QTextEdit::textChanged, context, step);
    }
}

namespace {

// A date may be typed in a longer form than it is stored in; what is too long even then is refused by its name on saving.
constexpr int longestDateText = 40;

// Limits a text of several lines. Cuts what was put in last, not the end of the text: what was there before stays.
class LinesLimit : public QObject {
public:
    LinesLimit(QPlainTextEdit *edit) : QObject(edit), m_edit(edit)
    {
        connect(edit->document(), &QTextDocument::contentsChange, this, [this](int position, int, int added) {
            if (!m_cutting)
                m_end = position + added;
        });
        connect(edit, &QPlainTextEdit::textChanged, this, [this] { cut(); });
    }

    int size = 0;
    int lineEnd = 1;            // characters that a line's end takes when it is stored

private:
    void cut()
    {
        if (m_cutting || size <= 0)
            return;
        const QString text = m_edit->toPlainText();
        qsizetype excess = text.size() + text.count(u'\n') * (lineEnd - 1) - size;
        const qsizetype end = std::min<qsizetype>(m_end, text.size());
        qsizetype begin = end;
        while (excess > 0 && begin > 0)
            excess -= text[--begin] == u'\n' ? lineEnd : 1;
        if (begin == end)
            return;
        m_cutting = true;
        QTextCursor cursor(m_edit->document());
        cursor.joinPreviousEditBlock();
        cursor.setPosition(static_cast<int>(begin));
        cursor.setPosition(static_cast<int>(end), QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
        cursor.endEditBlock();
        m_cutting = false;
    }

    QPlainTextEdit *m_edit;
    int m_end = 0;
    bool m_cutting = false;
};

}

void limit(QWidget &widget, int size, const BindOptions &options)
{
    constexpr int none = 32767;         // Qt's own limit of a line edit
    auto *combo = qobject_cast<QComboBox *>(&widget);
    if (auto *edit = combo ? combo->lineEdit() : qobject_cast<QLineEdit *>(&widget)) {
        const int most = size > 0 && options.store ? std::max(size, longestDateText) : size;
        edit->setMaxLength(most > 0 ? most : none);
    } else if (auto *plain = qobject_cast<QPlainTextEdit *>(&widget)) {
        auto *lines = static_cast<LinesLimit *>(plain->findChild<QObject *>(u"limit"_s, Qt::FindDirectChildrenOnly));
        if (!lines) {
            lines = new LinesLimit(plain);
            lines->setObjectName(u"limit"_s);
        }
        lines->size = size;
        lines->lineEnd = options.store ? 2 : 1;
    }
}

}
