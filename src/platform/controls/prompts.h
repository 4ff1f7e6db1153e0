#pragma once

#include "platform/basic/prompts.h"

// The real boxes, over the active window: what the program asks and reports while it runs.
namespace vorel::controls {

class ScreenPrompts : public basic::Prompts {
public:
    basic::Answer message(const QString &text, const QString &title, basic::Buttons buttons, basic::Icon icon) override;
    QString input(const QString &text, const QString &title, const QString &initial) override;
    std::optional<QString> chooseFile(const basic::FileQuestion &question) override;
    std::optional<quint32> chooseColour(quint32 rgb) override;
    std::optional<basic::FontChoice> chooseFont(const basic::FontChoice &font) override;
    std::optional<QString> chooseFolder(const QString &title, const QString &startPath) override;
    void beep() override;
};

}
