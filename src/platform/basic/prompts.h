#pragma once

#include <QString>
#include <optional>

// Every message box, question, input and chooser goes through this interface, so that a routine can ask without knowing
// a widget. The real boxes are in platform/controls; a test installs a scripted double.
namespace vorel::basic {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel };
enum class Icon { None, Information, Exclamation, Question, Critical };
enum class Answer { Ok, Cancel, Yes, No, Retry };

struct FileQuestion {
    QString title;
    QString startPath;
    QString filter;          // Qt's form: "Pictures (*.jpg *.png);;All files (*)"
    bool save = false;
};

struct FontChoice {
    QString name;            // "" = the text's own
    double points = 0;       // 0 = the text's own
    bool bold = false, italic = false, underline = false, strikeout = false;
};

class Prompts {
public:
    virtual ~Prompts() = default;
    virtual Answer message(const QString &text, const QString &title, Buttons buttons, Icon icon) = 0;
    virtual QString input(const QString &text, const QString &title, const QString &initial) = 0;    // "" = cancelled
    virtual std::optional<QString> chooseFile(const FileQuestion &question) = 0;
    virtual std::optional<quint32> chooseColour(quint32 rgb) = 0;          // 0xRRGGBB
    virtual std::optional<FontChoice> chooseFont(const FontChoice &) { return std::nullopt; }
    virtual std::optional<QString> chooseFolder(const QString &title, const QString &startPath) = 0;
    virtual void beep() {}
};

void setPrompts(Prompts *prompts);           // not owned; nullptr: errors go to stderr, questions answer No/Cancel
Prompts &prompts();

// The usual calls. An empty title means the product's.
void MsgBox(const QString &text, const QString &title = {}, Icon icon = Icon::None);
bool askYesNo(const QString &text, const QString &title = {}, Icon icon = Icon::Question);   // true on Yes
QString InputBox(const QString &text, const QString &title = {}, const QString &initial = {});
void setApplicationTitle(const QString &title);
const QString &applicationTitle();

}
