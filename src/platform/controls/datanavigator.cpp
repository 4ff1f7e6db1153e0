#include "platform/controls/datacontrol.h"

#include "platform/controls/form.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QStyle>
#include <QToolButton>

namespace vorel::controls {

using namespace Qt::StringLiterals;

struct DataNavigator::Private {
    QPointer<DataControl> control;
    QLabel *caption = nullptr;
    QLabel *position = nullptr;
    QToolButton *first = nullptr, *previous = nullptr, *next = nullptr, *last = nullptr;

    QToolButton *step(DataNavigator *parent, const char *name, const QString &text, const QString &icon,
                      QStyle::StandardPixmap fallback, bool (DataControl::*move)())
    {
        auto *button = new QToolButton(parent);
        button->setObjectName(QString::fromLatin1(name));
        button->setIcon(QIcon::fromTheme(icon, parent->style()->standardIcon(fallback)));
        button->setToolTip(text);
        button->setAccessibleName(text);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        on(button, &QToolButton::clicked, parent, [this, move] {
            if (control)
                (control->*move)();
        });
        return button;
    }

    void showPosition() const
    {
        qsizetype row = -1, total = 0;
        if (control && control->hasRows()) {
            row = control->Recordset().hasCurrentRow() ? control->Recordset().AbsolutePosition() : -1;
            total = control->Recordset().rowTotal();
        }
        position->setText(row < 0 ? u"0 of 0"_s : u"%1 of %2"_s.arg(row + 1).arg(total));
        first->setEnabled(row > 0);
        previous->setEnabled(row > 0);
        next->setEnabled(row >= 0 && row < total - 1);
        last->setEnabled(row >= 0 && row < total - 1);
    }
};

DataNavigator::DataNavigator(DataControl *control, QWidget *parent)
    : QWidget(parent), d(std::make_unique<Private>())
{
    d->control = control;
    d->caption = new QLabel(this);
    d->caption->setObjectName(u"caption"_s);
    d->caption->setTextFormat(Qt::PlainText);
    d->position = new QLabel(this);
    d->position->setObjectName(u"position"_s);
    d->position->setAlignment(Qt::AlignCenter);
    d->first = d->step(this, "first", u"First record"_s, u"go-first"_s, QStyle::SP_MediaSkipBackward, &DataControl::MoveFirst);
    d->previous = d->step(this, "previous", u"Previous record"_s, u"go-previous"_s, QStyle::SP_ArrowLeft, &DataControl::MovePrevious);
    d->next = d->step(this, "next", u"Next record"_s, u"go-next"_s, QStyle::SP_ArrowRight, &DataControl::MoveNext);
    d->last = d->step(this, "last", u"Last record"_s, u"go-last"_s, QStyle::SP_MediaSkipForward, &DataControl::MoveLast);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    row->addWidget(d->first);
    row->addWidget(d->previous);
    row->addWidget(d->caption, 1);
    row->addWidget(d->position);
    row->addWidget(d->next);
    row->addWidget(d->last);
    setAccessibleName(u"Records"_s);

    connect(control, &DataControl::Reposition, this, [this] { d->showPosition(); });
    connect(control, &DataControl::RowsChanged, this, [this] { d->showPosition(); });
    d->showPosition();
}

DataNavigator::~DataNavigator() = default;

void DataNavigator::setCaption(const QString &caption)
{
    d->caption->setText(caption);
}

}
