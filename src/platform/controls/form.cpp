#include "platform/controls/form.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QStyle>

namespace vorel::controls {

using namespace Qt::StringLiterals;

namespace {

std::function<void(const QString &)> &shownHelp()
{
    static std::function<void(const QString &)> help;
    return help;
}

}

Form::Form(const QString &name, QWidget *parent) : QDialog(parent)
{
    setObjectName(name);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setSizeGripEnabled(true);
}

void Form::ShowModal()
{
    exec();
}

bool Form::Close()
{
    return leave(QDialog::Rejected);
}

// While one closing is under way (a question may be open under it) a second one has nothing to do.
bool Form::leave(int result)
{
    if (m_closing)
        return false;
    const QPointer<Form> alive(this);
    m_closing = true;
    bool agreed = true;
    basic::Trap([&] { agreed = QueryUnload(); });
    if (!alive)
        return true;
    if (agreed)
        basic::Trap([&] { Unload(); });
    if (alive && agreed)
        QDialog::done(result);
    if (alive)
        m_closing = false;
    return agreed;
}

void Form::setHelp(std::function<void(const QString &name)> help)
{
    shownHelp() = std::move(help);
}

void Form::done(int result)
{
    leave(result);
}

void Form::closeEvent(QCloseEvent *event)
{
    event->setAccepted(!isVisible() || leave(QDialog::Rejected));
}

void Form::keyPressEvent(QKeyEvent *event)
{
    if (event->modifiers() == Qt::ControlModifier && event->key() == Qt::Key_W) {
        event->accept();
        Close();
    } else if (event->key() == Qt::Key_F1) {
        event->accept();
        if (isSignalConnected(QMetaMethod::fromSignal(&Form::helpWanted)))
            emit helpWanted();
        else if (shownHelp())
            basic::Trap([this] { shownHelp()(objectName()); });
    } else {
        QDialog::keyPressEvent(event);
    }
}

void Form::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    const QScreen *where = screen();
    if (event->spontaneous() || !where)
        return;
    const QRect area = where->availableGeometry();
    // The window frame's size is not known before the window is shown.
    const QSize decoration(8, style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this) + 8);
    const QSize room = (area.size() - decoration).expandedTo({200, 150});
    if (width() > room.width() || height() > room.height()) {
        setMinimumSize(minimumSize().boundedTo(room));
        resize(size().boundedTo(room));
    }
    QRect place(pos(), size() + decoration);
    place.moveRight(std::min(place.right(), area.right()));
    place.moveBottom(std::min(place.bottom(), area.bottom()));
    place.moveLeft(std::max(place.left(), area.left()));
    place.moveTop(std::max(place.top(), area.top()));
    if (place.topLeft() != pos())
        move(place.topLeft());
}

QAbstractButton *button(const QString &name, const QString &caption, const QString &icon, const QString &toolTip)
{
    auto *button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAutoDefault(false);        // Return in a field must not press the nearest button
    if (!icon.isEmpty())
        button->setIcon(QIcon::hasThemeIcon(icon) ? QIcon::fromTheme(icon) : QIcon(icon));
    button->setToolTip(toolTip);
    if (caption.trimmed().isEmpty()) {
        const QString spoken = toolTip.trimmed().isEmpty() ? name : toolTip.trimmed();
        button->setAccessibleName(spoken);
        if (button->icon().isNull())
            button->setText(spoken);
    }
    return button;
}

}
