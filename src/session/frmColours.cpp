#include "session/frmColours.h"

#include "session/ini.h"

#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 editColourDefault = 0xFFFF;       // yellow
constexpr int middleGray = 140;

QColor colourOf(quint32 number)
{
    return QColor(static_cast<int>(number & 0xff), static_cast<int>(number >> 8 & 0xff), static_cast<int>(number >> 16 & 0xff));
}

// An editable combo box holds a text box of its own, which follows it.
bool isTextBox(const QWidget *control)
{
    return qobject_cast<const QLineEdit *>(control) || qobject_cast<const QTextEdit *>(control)
        || qobject_cast<const QPlainTextEdit *>(control) || qobject_cast<const QComboBox *>(control);
}

bool isPanelOrImage(const QWidget *control)
{
    if (qobject_cast<const QGroupBox *>(control) || control->metaObject() == &QFrame::staticMetaObject)
        return true;
    const auto *label = qobject_cast<const QLabel *>(control);
    return label && !label->pixmap(Qt::ReturnByValue).isNull();
}

void paintBack(QWidget *control, QPalette::ColorRole role, const QColor &back)
{
    QPalette palette = control->palette();
    palette.setColor(role, back);
    if (role == QPalette::Base)
        palette.setColor(QPalette::Text, qGray(back.rgb()) > middleGray ? Qt::black : Qt::white);
    control->setPalette(palette);
    if (role == QPalette::Window)
        control->setAutoFillBackground(true);
}

}

void ApplyFormColours(QWidget *form)
{
    const QColor edit = colourOf(GetIniColour(u"EditColour"_s, editColourDefault));
    const QColor back = form->palette().color(QPalette::Window);
    const QList<QWidget *> controls = form->findChildren<QWidget *>();
    for (QWidget *control : controls) {
        if (isTextBox(control))
            paintBack(control, QPalette::Base, edit);
        else if (isPanelOrImage(control))
            paintBack(control, QPalette::Window, back);
    }
}

void ClearForm(QWidget *form)
{
    for (auto *box : form->findChildren<QLineEdit *>())
        box->clear();
    for (auto *box : form->findChildren<QTextEdit *>())
        box->clear();
    for (auto *box : form->findChildren<QPlainTextEdit *>())
        box->clear();
    for (auto *box : form->findChildren<QComboBox *>()) {
        box->setCurrentIndex(-1);
        box->setEditText({});
    }
}

}
