#pragma once

#include "platform/basic/prompts.h"

#include <QTextEdit>
#include <functional>
#include <optional>

// The rich-text box: a text that reads and writes RTF. Bound to a data control it stores plain text while nothing in it
// is formatted, RTF otherwise; it shows RTF, plain text and what older versions stored as HTML.
namespace vorel::controls {

class RichTextBox : public QTextEdit {
    Q_OBJECT
public:
    explicit RichTextBox(QWidget *parent = nullptr);

    QString TextRTF() const;
    void setTextRTF(const QString &rtf);        // a text that is not RTF is taken as plain
    QString Text() const;                       // the text alone, lines separated by "\n"
    void setText(const QString &text);          // as given, unformatted

    QString stored() const;                     // what a field keeps
    void setStored(const QString &text);
    static QString asStored(const QString &text);   // what the box keeps of a field's text

    // The selection; without one, what is typed next. A getter is empty where the selection is of several kinds.
    QString SelText() const;
    QString SelRTF() const;
    void setSelRTF(const QString &rtf);         // takes the selection's place
    std::optional<bool> SelBold() const;
    std::optional<bool> SelItalic() const;
    std::optional<bool> SelUnderline() const;
    std::optional<bool> SelStrikeThru() const;
    std::optional<bool> SelBullet() const;
    std::optional<QString> SelFontName() const;     // "" = the box's own font
    std::optional<double> SelFontSize() const;      // points
    void setSelBold(bool on);
    void setSelItalic(bool on);
    void setSelUnderline(bool on);
    void setSelStrikeThru(bool on);
    void setSelBullet(bool on);                     // the paragraphs that the selection touches
    void setSelAlignment(Qt::Alignment alignment);  // likewise
    void setSelColor(const QColor &colour);         // invalid = the palette's
    void setSelFont(const basic::FontChoice &font);
    basic::FontChoice SelFont() const;              // at the selection's end
    void ClearSelFormat();                          // plain words in the box's own font

    // false: the file could not be read or written (the old file is then unchanged), or is too large (16 MB).
    bool LoadFile(const QString &path);
    bool SaveFile(const QString &path) const;       // RTF
    // Selects the next place of the text, without regard to case, from the cursor on and then from the start.
    bool Find(const QString &text);
    // Puts in the clipboard's text, formatted where it is. Anything but text shows a message and puts in nothing.
    void Paste();
    void Clear();                                   // the selection, or without one the whole text; can be undone

protected:
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;
    QMimeData *createMimeDataFromSelection() const override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    class Readable;
    template <class Value> std::optional<Value> ofSelection(Value (*valueOf)(const QTextCharFormat &)) const;
    void change(const std::function<void(QTextCharFormat &)> &step);
    void setFlag(int property, bool on, const QVariant &value);
    Readable *m_readable;
};

}
