#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

// Driving a screen by the names of its controls, as a user would.
namespace vorel::test {

template <class W = QWidget> W *control(const QWidget &screen, const QString &name)
{
    W *found = screen.findChild<W *>(name);
    EXPECT_TRUE(found) << "no control " << qPrintable(name);
    return found;
}

inline void click(const QWidget &screen, const QString &name)
{
    auto *button = control<QAbstractButton>(screen, name);
    ASSERT_TRUE(button && button->isVisible() && button->isEnabled()) << qPrintable(name);
    // A check box takes clicks on its box and text only.
    QTest::mouseClick(button, Qt::LeftButton, {}, button->isCheckable() ? QPoint(8, button->height() / 2) : QPoint());
}

// What a field shows.
inline QString shownText(const QWidget *widget)
{
    if (auto *combo = qobject_cast<const QComboBox *>(widget))
        return combo->currentText();
    if (auto *lines = qobject_cast<const QPlainTextEdit *>(widget))
        return lines->toPlainText();
    if (auto *rich = qobject_cast<const QTextEdit *>(widget))
        return rich->toPlainText();
    return widget->property("text").toString();
}

// Replaces the text as a user does.
inline void typeInto(QWidget *widget, const QString &words)
{
    ASSERT_TRUE(widget->isVisible() && widget->isEnabled()) << qPrintable(widget->objectName());
    if (auto *combo = qobject_cast<QComboBox *>(widget)) {
        if (!combo->isEditable())
            return combo->setCurrentText(words);
        widget = combo->lineEdit();
    }
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(widget, Qt::Key_Delete);
    QTest::keyClicks(widget, words);
}

// Works on the modal screen that the step opens, and closes it if the work has not.
template <class Form> void inModal(const std::function<void()> &open, const std::function<void(Form &)> &work)
{
    bool worked = false;
    // The way to the screen may let events run before it is up.
    QTimer visitor;
    QObject::connect(&visitor, &QTimer::timeout, &visitor, [&] {
        auto *form = qobject_cast<Form *>(QApplication::activeModalWidget());
        if (!form)
            return;
        visitor.stop();
        worked = true;
        work(*form);
        if (form->isVisible())
            form->close();
    });
    visitor.start(1);
    open();
    visitor.stop();
    QCoreApplication::processEvents();
    EXPECT_TRUE(worked) << "the screen did not open";
}

}
