#pragma once

#include "platform/basic/error.h"

#include <QAbstractButton>
#include <QDialog>
#include <memory>
#include <functional>

// The base of every screen but the main one.
namespace vorel::controls {

template <class Handler, class... Args>
void callWithAllOrNone(const Handler &handler, Args &&...args)
{
    if constexpr (std::is_invocable_v<const Handler &, Args...>)
        handler(std::forward<Args>(args)...);
    else
        handler();
}

// Connects a signal to a handler that runs under the general trap: a failure shows a message box and the program goes on.
// The handler takes all of the signal's arguments or none.
template <class Sender, class Signal, class Handler>
void on(Sender *sender, Signal signal, QObject *context, Handler handler)
{
    QObject::connect(sender, signal, context, [handler](auto &&...args) {
        basic::Trap([&] { callWithAllOrNone(handler, std::forward<decltype(args)>(args)...); });
    });
}

// A screen. Esc, the window's close button, Ctrl+W and code all close it the same way: QueryUnload, then Unload.
class Form : public QDialog {
    Q_OBJECT
public:
    explicit Form(const QString &name, QWidget *parent = nullptr);   // name: the objectName, e.g. "frmRecord"

    void ShowModal();                   // returns when the screen is closed
    bool Close();                       // false: QueryUnload said no (typing that could not be saved is kept)

    // What F1 shows on a screen that does not answer helpWanted itself; name: its objectName.
    static void setHelp(std::function<void(const QString &name)> help);

signals:
    void helpWanted();                  // F1

public:
    // The context for slots of this screen. It dies before the controls do: what they emit while they are destroyed must
    // not reach a screen whose own part is already destroyed.
    QObject *handlers() const { return m_handlers.get(); }

protected:
    virtual bool QueryUnload() { return true; }
    virtual void Unload() {}
    void done(int result) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;     // kept inside the desktop's work area

private:
    bool leave(int result);
    bool m_closing = false;
    std::unique_ptr<QObject> m_handlers = std::make_unique<QObject>();
};

// A named button with its caption ("&" mnemonics as usual) and, for icon-only ones, an accessible name.
QAbstractButton *button(const QString &name, const QString &caption, const QString &icon = {}, const QString &toolTip = {});

}
