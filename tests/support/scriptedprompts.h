#pragma once

#include "platform/basic/prompts.h"

#include <QStringList>
#include <deque>
#include <variant>
#include <vector>

// A user by script: each question that the program will ask is written down beforehand, in order. A question that was
// not expected, or one that was expected and never came, fails the test.
namespace vorel::test {

class ScriptedPrompts : public basic::Prompts {
public:
    ScriptedPrompts();                      // takes the place of the prompts until it goes
    ~ScriptedPrompts() override;

    struct Shown {
        QString text;
        QString title;
        basic::Buttons buttons = basic::Buttons::Ok;
        basic::Icon icon = basic::Icon::None;
    };

    // `text`: the whole of it or a part; "" takes any.
    void expect(const QString &text, basic::Answer answer = basic::Answer::Ok);
    void expectInput(const QString &text, const QString &typed);                    // "" = cancelled
    void expectFile(const QString &title, const std::optional<QString> &path);
    void expectFolder(const QString &title, const std::optional<QString> &path);
    void expectFont(const std::optional<basic::FontChoice> &font);
    void expectColour(const std::optional<quint32> &rgb);

    const std::vector<Shown> &shown() const { return m_shown; }     // all that was asked, in order
    QStringList texts() const;
    const basic::FileQuestion &lastFileQuestion() const { return m_lastFile; }
    bool isDone() const { return m_expected.empty(); }
    int beeps() const { return m_beeps; }

    basic::Answer message(const QString &text, const QString &title, basic::Buttons buttons, basic::Icon icon) override;
    QString input(const QString &text, const QString &title, const QString &initial) override;
    std::optional<QString> chooseFile(const basic::FileQuestion &question) override;
    std::optional<quint32> chooseColour(quint32 rgb) override;
    std::optional<basic::FontChoice> chooseFont(const basic::FontChoice &font) override;
    std::optional<QString> chooseFolder(const QString &title, const QString &startPath) override;
    void beep() override { ++m_beeps; }

private:
    enum class Kind { Message, Input, File, Folder, Colour, Font };
    struct Expected {
        Kind kind;
        QString text;
        std::variant<std::monostate, basic::Answer, QString, quint32, basic::FontChoice> answer;
    };
    bool take(Kind kind, const QString &text, Expected *taken);
    template <class T> void choice(Kind kind, const QString &title, const std::optional<T> &answer)
    {
        m_expected.push_back({kind, title, {}});
        if (answer)
            m_expected.back().answer = *answer;
    }
    template <class T> std::optional<T> chosen(Kind kind, const QString &title)
    {
        m_shown.push_back({title, title});
        Expected taken;
        const bool given = take(kind, title, &taken) && std::holds_alternative<T>(taken.answer);
        return given ? std::optional<T>(std::get<T>(taken.answer)) : std::nullopt;
    }

    std::deque<Expected> m_expected;
    std::vector<Shown> m_shown;
    basic::FileQuestion m_lastFile;
    int m_beeps = 0;
};

}
