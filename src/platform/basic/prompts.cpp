#include "platform/basic/prompts.h"

#include <cstdio>

namespace vorel::basic {

using namespace Qt::StringLiterals;

namespace {

// Without a screen nobody can answer: the text goes to stderr, and the answer is the one that changes nothing.
class SilentPrompts : public Prompts {
public:
    Answer message(const QString &text, const QString &title, Buttons buttons, Icon) override
    {
        print(text, title);
        switch (buttons) {
        case Buttons::Ok:
            return Answer::Ok;
        case Buttons::YesNo:
            return Answer::No;
        case Buttons::OkCancel:
        case Buttons::YesNoCancel:
        case Buttons::RetryCancel:
            break;
        }
        return Answer::Cancel;
    }
    QString input(const QString &text, const QString &title, const QString &) override
    {
        print(text, title);
        return {};
    }
    std::optional<QString> chooseFile(const FileQuestion &) override { return std::nullopt; }
    std::optional<quint32> chooseColour(quint32) override { return std::nullopt; }
    std::optional<QString> chooseFolder(const QString &, const QString &) override { return std::nullopt; }

private:
    static void print(const QString &text, const QString &title)
    {
        const QByteArray line = (title + u": "_s + text).toUtf8();
        std::fprintf(stderr, "%s\n", line.constData());
    }
};

Prompts *installed = nullptr;

QString &storedTitle()
{
    static QString title = u"Vorel Reminder"_s;
    return title;
}

const QString &titleOr(const QString &title)
{
    return title.isEmpty() ? applicationTitle() : title;
}

}

void setPrompts(Prompts *prompts)
{
    installed = prompts;
}

Prompts &prompts()
{
    static SilentPrompts silent;
    return installed ? *installed : silent;
}

void MsgBox(const QString &text, const QString &title, Icon icon)
{
    prompts().message(text, titleOr(title), Buttons::Ok, icon);
}

bool askYesNo(const QString &text, const QString &title, Icon icon)
{
    return prompts().message(text, titleOr(title), Buttons::YesNo, icon) == Answer::Yes;
}

QString InputBox(const QString &text, const QString &title, const QString &initial)
{
    return prompts().input(text, titleOr(title), initial);
}

void setApplicationTitle(const QString &title)
{
    storedTitle() = title;
}

const QString &applicationTitle()
{
    return storedTitle();
}

}
