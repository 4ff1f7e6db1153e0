#include "support/scriptedprompts.h"

#include <gtest/gtest.h>

namespace vorel::test {

using basic::Answer;
using basic::Buttons;

namespace {

// The last is the answer of someone who wants nothing to happen, so that the test goes on to its end.
QList<Answer> offered(Buttons buttons)
{
    switch (buttons) {
    case Buttons::Ok: return {Answer::Ok};
    case Buttons::OkCancel: return {Answer::Ok, Answer::Cancel};
    case Buttons::YesNo: return {Answer::Yes, Answer::No};
    case Buttons::YesNoCancel: return {Answer::Yes, Answer::No, Answer::Cancel};
    case Buttons::RetryCancel: return {Answer::Retry, Answer::Cancel};
    }
    return {};
}

const char *const kindNames[] = {"message", "input", "file chooser", "folder chooser", "colour chooser",
                                 "font chooser"};

}

ScriptedPrompts::ScriptedPrompts()
{
    basic::setPrompts(this);
}

ScriptedPrompts::~ScriptedPrompts()
{
    basic::setPrompts(nullptr);
    for (const Expected &left : m_expected)
        ADD_FAILURE() << "never asked (" << kindNames[static_cast<int>(left.kind)] << "): " << left.text.toStdString();
}

void ScriptedPrompts::expect(const QString &text, Answer answer)
{
    m_expected.push_back({Kind::Message, text, answer});
}

void ScriptedPrompts::expectInput(const QString &text, const QString &typed)
{
    m_expected.push_back({Kind::Input, text, typed});
}

void ScriptedPrompts::expectFile(const QString &title, const std::optional<QString> &path)
{
    choice(Kind::File, title, path);
}

void ScriptedPrompts::expectFolder(const QString &title, const std::optional<QString> &path)
{
    choice(Kind::Folder, title, path);
}

void ScriptedPrompts::expectColour(const std::optional<quint32> &rgb)
{
    choice(Kind::Colour, {}, rgb);
}

void ScriptedPrompts::expectFont(const std::optional<basic::FontChoice> &font)
{
    choice(Kind::Font, {}, font);
}

QStringList ScriptedPrompts::texts() const
{
    QStringList all;
    for (const Shown &one : m_shown)
        all.append(one.text);
    return all;
}

bool ScriptedPrompts::take(Kind kind, const QString &text, Expected *taken)
{
    const char *name = kindNames[static_cast<int>(kind)];
    if (m_expected.empty()) {
        ADD_FAILURE() << "not expected (" << name << "): " << text.toStdString();
        return false;
    }
    if (m_expected.front().kind != kind || !text.contains(m_expected.front().text)) {
        ADD_FAILURE() << "asked (" << name << "): " << text.toStdString() << "\nexpected ("
                      << kindNames[static_cast<int>(m_expected.front().kind)] << "): " << m_expected.front().text.toStdString();
        return false;
    }
    *taken = m_expected.front();
    m_expected.pop_front();
    return true;
}

Answer ScriptedPrompts::message(const QString &text, const QString &title, Buttons buttons, basic::Icon icon)
{
    m_shown.push_back({text, title, buttons, icon});
    Expected taken;
    if (!take(Kind::Message, text, &taken))
        return offered(buttons).last();
    const Answer answer = std::get<Answer>(taken.answer);
    EXPECT_TRUE(offered(buttons).contains(answer)) << "no such button under: " << text.toStdString();
    return answer;
}

QString ScriptedPrompts::input(const QString &text, const QString &title, const QString &)
{
    m_shown.push_back({text, title});
    Expected taken;
    return take(Kind::Input, text, &taken) ? std::get<QString>(taken.answer) : QString();
}

std::optional<QString> ScriptedPrompts::chooseFile(const basic::FileQuestion &question)
{
    m_lastFile = question;
    return chosen<QString>(Kind::File, question.title);
}

std::optional<QString> ScriptedPrompts::chooseFolder(const QString &title, const QString &)
{
    return chosen<QString>(Kind::Folder, title);
}

std::optional<quint32> ScriptedPrompts::chooseColour(quint32)
{
    return chosen<quint32>(Kind::Colour, {});
}

std::optional<basic::FontChoice> ScriptedPrompts::chooseFont(const basic::FontChoice &)
{
    return chosen<basic::FontChoice>(Kind::Font, {});
}

}
