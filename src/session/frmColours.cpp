#include "session/frmColours.h"

#include "platform/basic/colournumber.h"
#include "platform/controls/look.h"
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
constexpr int middleGray = 140;             // above it black reads better, below it white

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
    if (role == QPalette::Base) {
        controls::setTextGround(palette, back);
        palette.setColor(QPalette::Text, qGray(back.rgb()) > middleGray ? Qt::black : Qt::white);
    } else {
        palette.setColor(role, back);
    }
    control->setPalette(palette);
    if (role == QPalette::Window)
        control->setAutoFillBackground(true);
}

}

void ApplyFormColours(QWidget *form)
{
    const QColor edit = basic::colourOfNumber(GetIniColour(u"EditColour"_s, editColourDefault));
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
