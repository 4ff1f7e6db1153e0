#include "platform/controls/richtextbox.h"

#include "platform/controls/colours.h"
#include "platform/richtext/richtext.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QKeyEvent>
#include <QMimeData>
#include <QSaveFile>
#include <QSyntaxHighlighter>
#include <QTextDocumentFragment>
#include <QTextList>

namespace vorel::controls {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestFile = 16 << 20;    // parsed on the screen's thread: more would stop the program for seconds
constexpr double easyContrast = 5;          // a little above the 4.5 that body text needs, for thin letters
const QStringList rtfTypes = {u"text/rtf"_s, u"application/rtf"_s, u"text/richtext"_s};

// Older versions stored what a rich text editor writes by itself; a user's own "<b>" stays those three characters.
bool isHtml(const QString &text)
{
    return text.startsWith(u"<!DOCTYPE HTML"_s, Qt::CaseInsensitive) || text.startsWith(u"<html"_s, Qt::CaseInsensitive);
}

// What of an HTML the RTF can keep.
QString rtfOfHtml(const QString &html)
{
    QTextDocument document;
    document.setHtml(html);
    return richtext::write(document);
}

QString storedOf(const QTextDocument &document)
{
    const QString text = richtext::plainText(document);
    return richtext::isFormatted(document) || richtext::isRtf(text) || isHtml(text) ? richtext::write(document) : text;
}

QTextDocumentFragment fragmentOf(const QString &text)
{
    QTextDocument document;
    richtext::read(document, text);
    return QTextDocumentFragment(&document);
}

QString rtfIn(const QMimeData &source)
{
    for (const QString &type : rtfTypes) {
        if (!source.hasFormat(type))
            continue;
        QTextDocument document;
        richtext::read(document, source.data(type));
        return richtext::write(document);
    }
    return source.hasHtml() ? rtfOfHtml(source.html()) : QString();
}

}

// Text in colours that were chosen for another palette is shown in readable ones; the text keeps its own.
class RichTextBox::Readable : public QSyntaxHighlighter {
public:
    explicit Readable(RichTextBox *box) : QSyntaxHighlighter(box->document()), m_box(box) {}

protected:
    void highlightBlock(const QString &) override
    {
        const QTextBlock block = currentBlock();
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat format = it.fragment().charFormat();
            const bool hasFore = format.hasProperty(QTextFormat::ForegroundBrush);
            const bool hasBack = format.hasProperty(QTextFormat::BackgroundBrush);
            if (!hasFore && !hasBack)
                continue;
            const QPalette palette = m_box->palette();
            const QColor fore = hasFore ? format.foreground().color() : palette.color(QPalette::Text);
            const QColor back = hasBack ? format.background().color() : palette.color(QPalette::Base);
            if (const QColor shown = shownOn(back, fore); shown != fore)
                setFormat(it.fragment().position() - block.position(), it.fragment().length(), shown);
        }
    }

private:
    // The colour itself, or what is left of it once it can be read.
    static QColor shownOn(const QColor &back, const QColor &fore)
    {
        const QColor shown = readable(fore, back);
        for (int tenths = 2; shown != fore && tenths < 10; ++tenths) {
            const QColor nearer = blend(fore, blackOrWhiteOn(back), tenths / 10.0);
            if (contrast(nearer, back) >= easyContrast)
                return nearer;
        }
        return shown;
    }

    RichTextBox *m_box;
};

RichTextBox::RichTextBox(QWidget *parent) : QTextEdit(parent), m_readable(new Readable(this))
{
    setAcceptRichText(true);
    setTabChangesFocus(true);
}

QString RichTextBox::TextRTF() const
{
    return richtext::write(*document());
}

void RichTextBox::setTextRTF(const QString &rtf)
{
    setCurrentCharFormat({});
    richtext::read(*document(), rtf);
    setTextCursor(QTextCursor(document()));
    setCurrentCharFormat(textCursor().blockCharFormat());
}

QString RichTextBox::Text() const
{
    return richtext::plainText(*document());
}

void RichTextBox::setText(const QString &text)
{
    setCurrentCharFormat({});
    setPlainText(text);
}

QString RichTextBox::stored() const
{
    return storedOf(*document());
}

void RichTextBox::setStored(const QString &text)
{
    setTextRTF(isHtml(text) ? rtfOfHtml(text) : text);
}

QString RichTextBox::asStored(const QString &text)
{
    if (!richtext::isRtf(text) && !isHtml(text))
        return text;
    QTextDocument document;
    richtext::read(document, isHtml(text) ? rtfOfHtml(text) : text);
    return storedOf(document);
}

QString RichTextBox::SelText() const
{
    return textCursor().selection().toRawText().replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

QString RichTextBox::SelRTF() const
{
    QTextDocument document;
    QTextCursor(&document).insertFragment(textCursor().selection());
    return richtext::write(document);
}

void RichTextBox::setSelRTF(const QString &rtf)
{
    textCursor().insertFragment(fragmentOf(rtf));
    ensureCursorVisible();
}

// One value for all of the selection, or none.
template <class Value>
std::optional<Value> RichTextBox::ofSelection(Value (*valueOf)(const QTextCharFormat &)) const
{
    const QTextCursor cursor = textCursor();
    if (!cursor.hasSelection())
        return valueOf(currentCharFormat());
    std::optional<Value> found;
    const QTextBlock last = document()->findBlock(cursor.selectionEnd());
    for (QTextBlock block = document()->findBlock(cursor.selectionStart()); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            if (fragment.position() + fragment.length() <= cursor.selectionStart() || fragment.position() >= cursor.selectionEnd())
                continue;
            const Value value = valueOf(fragment.charFormat());
            if (found && *found != value)
                return std::nullopt;
            found = value;
        }
        if (block == last)
            break;
    }
    return found ? found : valueOf(currentCharFormat());
}

std::optional<bool> RichTextBox::SelBold() const
{
    return ofSelection<bool>([](const QTextCharFormat &format) { return format.fontWeight() >= QFont::DemiBold; });
}

std::optional<bool> RichTextBox::SelItalic() const
{
    return ofSelection<bool>([](const QTextCharFormat &format) { return format.fontItalic(); });
}

std::optional<bool> RichTextBox::SelUnderline() const
{
    return ofSelection<bool>([](const QTextCharFormat &format) { return format.fontUnderline(); });
}

std::optional<bool> RichTextBox::SelStrikeThru() const
{
    return ofSelection<bool>([](const QTextCharFormat &format) { return format.fontStrikeOut(); });
}

std::optional<QString> RichTextBox::SelFontName() const
{
    return ofSelection<QString>([](const QTextCharFormat &format) { return format.fontFamilies().toStringList().value(0); });
}

std::optional<double> RichTextBox::SelFontSize() const
{
    const auto own = ofSelection<double>([](const QTextCharFormat &format) { return format.fontPointSize(); });
    return own && *own <= 0 ? std::optional(document()->defaultFont().pointSizeF()) : own;
}

std::optional<bool> RichTextBox::SelBullet() const
{
    std::optional<bool> found;
    const QTextBlock last = document()->findBlock(textCursor().selectionEnd());
    for (QTextBlock block = document()->findBlock(textCursor().selectionStart()); block.isValid(); block = block.next()) {
        const bool listed = block.textList() != nullptr;
        if (found && *found != listed)
            return std::nullopt;
        found = listed;
        if (block == last)
            break;
    }
    return found;
}

// A property is set, or removed so that the text stays as plain as it was.
void RichTextBox::change(const std::function<void(QTextCharFormat &)> &step)
{
    QTextCursor cursor = textCursor();
    if (!cursor.hasSelection()) {
        QTextCharFormat format = currentCharFormat();
        step(format);
        setCurrentCharFormat(format);
        return;
    }
    struct Piece {
        int start, end;
        QTextCharFormat format;
    };
    QList<Piece> pieces;
    for (QTextBlock block = document()->findBlock(cursor.selectionStart()); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const int start = std::max(it.fragment().position(), cursor.selectionStart());
            const int end = std::min(it.fragment().position() + it.fragment().length(), cursor.selectionEnd());
            if (start < end)
                pieces.append({start, end, it.fragment().charFormat()});
        }
        if (block.position() + block.length() > cursor.selectionEnd())
            break;
    }
    QTextCursor edit(document());
    edit.beginEditBlock();
    for (Piece &piece : pieces) {
        edit.setPosition(piece.start);
        edit.setPosition(piece.end, QTextCursor::KeepAnchor);
        step(piece.format);
        edit.setCharFormat(piece.format);
    }
    edit.endEditBlock();
}

void RichTextBox::setFlag(int property, bool on, const QVariant &value)
{
    change([property, on, &value](QTextCharFormat &format) {
        if (on)
            format.setProperty(property, value);
        else
            format.clearProperty(property);
    });
}

void RichTextBox::setSelBold(bool on)
{
    setFlag(QTextFormat::FontWeight, on, QFont::Bold);
}

void RichTextBox::setSelItalic(bool on)
{
    setFlag(QTextFormat::FontItalic, on, true);
}

void RichTextBox::setSelUnderline(bool on)
{
    setFlag(QTextFormat::TextUnderlineStyle, on, QTextCharFormat::SingleUnderline);
}

void RichTextBox::setSelStrikeThru(bool on)
{
    setFlag(QTextFormat::FontStrikeOut, on, true);
}

void RichTextBox::setSelColor(const QColor &colour)
{
    setFlag(QTextFormat::ForegroundBrush, colour.isValid(), QBrush(colour));
}

void RichTextBox::setSelFont(const basic::FontChoice &font)
{
    change([&font](QTextCharFormat &format) {
        if (!font.name.isEmpty())
            format.setFontFamilies({font.name});
        if (font.points > 0)
            format.setFontPointSize(font.points);
    });
    setSelBold(font.bold);
    setSelItalic(font.italic);
    setSelUnderline(font.underline);
    setSelStrikeThru(font.strikeout);
}

basic::FontChoice RichTextBox::SelFont() const
{
    const QTextCharFormat format = currentCharFormat();
    const QFont own = document()->defaultFont();
    const QString family = format.fontFamilies().toStringList().value(0);
    return {family.isEmpty() ? own.family() : family,
            format.fontPointSize() > 0 ? format.fontPointSize() : own.pointSizeF(),
            format.fontWeight() >= QFont::DemiBold, format.fontItalic(), format.fontUnderline(), format.fontStrikeOut()};
}

void RichTextBox::ClearSelFormat()
{
    change([](QTextCharFormat &format) { format = {}; });
}

void RichTextBox::setSelBullet(bool on)
{
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    if (on) {
        QTextListFormat format;
        format.setStyle(QTextListFormat::ListDisc);
        format.setIndent(1);
        cursor.createList(format);
    } else {
        const QTextBlock last = document()->findBlock(cursor.selectionEnd());
        for (QTextBlock block = document()->findBlock(cursor.selectionStart()); block.isValid(); block = block.next()) {
            if (QTextList *list = block.textList())
                list->remove(block);
            QTextBlockFormat format = block.blockFormat();
            format.clearProperty(QTextFormat::BlockIndent);
            QTextCursor(block).setBlockFormat(format);
            if (block == last)
                break;
        }
    }
    cursor.endEditBlock();
}

void RichTextBox::setSelAlignment(Qt::Alignment alignment)
{
    setAlignment(alignment);
}

bool RichTextBox::LoadFile(const QString &path)
{
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly) || file.size() > largestFile)
        return false;
    const QByteArray bytes = file.read(largestFile);
    if (file.error() != QFileDevice::NoError)
        return false;
    setCurrentCharFormat({});
    richtext::read(*document(), bytes);
    setTextCursor(QTextCursor(document()));
    return true;
}

bool RichTextBox::SaveFile(const QString &path) const
{
    QSaveFile file(path);
    const QByteArray rtf = TextRTF().toLatin1();
    return file.open(QIODevice::WriteOnly) && file.write(rtf) == rtf.size() && file.commit();
}

bool RichTextBox::Find(const QString &text)
{
    if (text.isEmpty())
        return false;
    QTextCursor found = document()->find(text, textCursor());
    if (found.isNull())
        found = document()->find(text);
    if (found.isNull())
        return false;
    setTextCursor(found);
    ensureCursorVisible();
    return true;
}

void RichTextBox::Paste()
{
    if (isReadOnly())
        return;
    const QMimeData *source = QApplication::clipboard()->mimeData();
    if (source && canInsertFromMimeData(source))
        paste();
    else
        basic::MsgBox(u"Clipboard contains unknown data type!"_s, u"Error"_s, basic::Icon::Exclamation);
}

void RichTextBox::Clear()
{
    QTextCursor cursor = textCursor();
    if (!cursor.hasSelection())
        cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
}

bool RichTextBox::canInsertFromMimeData(const QMimeData *source) const
{
    return source->hasText() || source->hasHtml()
        || std::any_of(rtfTypes.begin(), rtfTypes.end(), [source](const QString &type) { return source->hasFormat(type); });
}

void RichTextBox::insertFromMimeData(const QMimeData *source)
{
    if (!canInsertFromMimeData(source))
        return;
    if (const QString rtf = rtfIn(*source); !rtf.isEmpty())
        textCursor().insertFragment(fragmentOf(rtf));
    else
        textCursor().insertText(source->text());
    ensureCursorVisible();
}

QMimeData *RichTextBox::createMimeDataFromSelection() const
{
    auto *mime = new QMimeData;
    mime->setText(SelText());
    const QByteArray rtf = SelRTF().toLatin1();
    for (const QString &type : rtfTypes)
        mime->setData(type, rtf);
    mime->setHtml(textCursor().selection().toHtml());
    return mime;
}

void RichTextBox::keyPressEvent(QKeyEvent *event)
{
    const auto turn = [](std::optional<bool> now) { return !now.value_or(false); };
    if (isReadOnly())
        return QTextEdit::keyPressEvent(event);
    if (event->matches(QKeySequence::Paste))
        Paste();
    else if (event->matches(QKeySequence::Bold))
        setSelBold(turn(SelBold()));
    else if (event->matches(QKeySequence::Italic))
        setSelItalic(turn(SelItalic()));
    else if (event->matches(QKeySequence::Underline))
        setSelUnderline(turn(SelUnderline()));
    else
        return QTextEdit::keyPressEvent(event);
    event->accept();
}

void RichTextBox::changeEvent(QEvent *event)
{
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        m_readable->rehighlight();
}

}
