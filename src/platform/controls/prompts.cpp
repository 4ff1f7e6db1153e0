#include "platform/controls/prompts.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <algorithm>

namespace vorel::controls {

using namespace Qt::StringLiterals;
using basic::Answer;
using basic::Buttons;
using basic::Icon;

namespace {

QMessageBox::StandardButtons standardButtons(Buttons buttons)
{
    switch (buttons) {
    case Buttons::Ok: return QMessageBox::Ok;
    case Buttons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::RetryCancel: return QMessageBox::Retry | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon standardIcon(Icon icon)
{
    switch (icon) {
    case Icon::None: return QMessageBox::NoIcon;
    case Icon::Information: return QMessageBox::Information;
    case Icon::Exclamation: return QMessageBox::Warning;
    case Icon::Question: return QMessageBox::Question;
    case Icon::Critical: return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

// Closed without an answer: the one that changes nothing.
Answer answerOf(int pressed, Buttons buttons)
{
    switch (pressed) {
    case QMessageBox::Ok: return Answer::Ok;
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::Retry: return Answer::Retry;
    case QMessageBox::No: return Answer::No;
    default: break;
    }
    if (buttons == Buttons::Ok)
        return Answer::Ok;
    return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
}

// A box is as wide as its lines; one that holds a path is not broken as long as the screen is wide enough.
int textWidth(const QString &text, const QWidget &box)
{
    constexpr int widestProse = 560;        // about 80 characters, the longest line that reads well
    const QFontMetrics metrics(box.font());
    const int widestPath = box.screen()->availableGeometry().width() * 3 / 4;
    int width = 0;
    for (const QString &line : text.split(u'\n')) {
        const int most = line.contains(u'/') ? widestPath : widestProse;
        width = std::max(width, std::min(metrics.horizontalAdvance(line.trimmed()) + metrics.averageCharWidth(), most));
    }
    return width;
}

const QString &titleOr(const QString &title)
{
    return title.isEmpty() ? basic::applicationTitle() : title;
}

}

Answer ScreenPrompts::message(const QString &text, const QString &title, Buttons buttons, Icon icon)
{
    QPointer<QMessageBox> box = new QMessageBox(QApplication::activeWindow());
    box->setObjectName(u"MsgBox"_s);
    box->setWindowModality(Qt::ApplicationModal);
    box->setWindowTitle(titleOr(title));
    box->setTextFormat(Qt::PlainText);
    box->setText(text);
    if (auto *label = box->findChild<QLabel *>(u"qt_msgbox_label"_s))
        label->setMinimumWidth(textWidth(text, *box));
    box->setIcon(standardIcon(icon));
    box->setStandardButtons(standardButtons(buttons));
    if (buttons == Buttons::YesNo)
        box->setEscapeButton(QMessageBox::No);
    const int pressed = box->exec();
    delete box;                         // its parent may have died under it
    return answerOf(pressed, buttons);
}

QString ScreenPrompts::input(const QString &text, const QString &title, const QString &initial)
{
    QPointer<QInputDialog> box = new QInputDialog(QApplication::activeWindow());
    box->setObjectName(u"InputBox"_s);
    box->setWindowModality(Qt::ApplicationModal);
    box->setWindowTitle(titleOr(title));
    box->setLabelText(text);
    box->setTextValue(initial);
    const bool accepted = box->exec() == QDialog::Accepted;
    const QString typed = accepted && box ? box->textValue() : QString();
    delete box;
    return typed;
}

std::optional<QString> ScreenPrompts::chooseFile(const basic::FileQuestion &question)
{
    QWidget *parent = QApplication::activeWindow();
    constexpr QFileDialog::Option plainTypes = QFileDialog::HideNameFilterDetails;      // the names say it already
    const QString path = question.save
        ? QFileDialog::getSaveFileName(parent, titleOr(question.title), question.startPath, question.filter, nullptr, plainTypes)
        : QFileDialog::getOpenFileName(parent, titleOr(question.title), question.startPath, question.filter, nullptr, plainTypes);
    return path.isEmpty() ? std::nullopt : std::optional(path);
}

std::optional<quint32> ScreenPrompts::chooseColour(quint32 rgb)
{
    const QColor chosen = QColorDialog::getColor(QColor::fromRgb(rgb), QApplication::activeWindow());
    return chosen.isValid() ? std::optional<quint32>(chosen.rgb() & 0xFFFFFF) : std::nullopt;
}

std::optional<basic::FontChoice> ScreenPrompts::chooseFont(const basic::FontChoice &font)
{
    QFont shown = QApplication::font();
    if (!font.name.isEmpty())
        shown.setFamilies({font.name});
    if (font.points > 0)
        shown.setPointSizeF(font.points);
    shown.setBold(font.bold);
    shown.setItalic(font.italic);
    shown.setUnderline(font.underline);
    shown.setStrikeOut(font.strikeout);
    bool accepted = false;
    const QFont chosen = QFontDialog::getFont(&accepted, shown, QApplication::activeWindow());
    if (!accepted)
        return std::nullopt;
    return basic::FontChoice{chosen.family(), chosen.pointSizeF(), chosen.bold(), chosen.italic(), chosen.underline(),
                             chosen.strikeOut()};
}

std::optional<QString> ScreenPrompts::chooseFolder(const QString &title, const QString &startPath)
{
    const QString path = QFileDialog::getExistingDirectory(QApplication::activeWindow(), titleOr(title), startPath);
    return path.isEmpty() ? std::nullopt : std::optional(path);
}

void ScreenPrompts::beep()
{
    QApplication::beep();
}

}
