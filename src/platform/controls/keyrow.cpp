#include "platform/controls/keyrow.h"

#include "platform/controls/layout.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>

namespace vorel::controls {

using namespace Qt::StringLiterals;

namespace {

int widthOf(const QWidget *widget)
{
    return widget->sizeHint().expandedTo(widget->minimumSize()).width() + layout::unit;
}

int widthOf(const QWidgetList &widgets)
{
    int sum = 0;
    for (const QWidget *widget : widgets)
        sum += widthOf(widget);
    return sum;
}

}

KeyRow::KeyRow(const QWidgetList &left, QWidget *text, const QWidgetList &right, QWidget *parent)
    : QWidget(parent), m_left(left), m_right(right.mid(0, right.size() - 1)), m_last(right.last()), m_more(new QToolButton(this))
{
    m_more->setObjectName(u"cmdMore"_s);
    m_more->setText(u"More"_s);
    m_more->setPopupMode(QToolButton::InstantPopup);
    m_more->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_more->setMenu(new QMenu(m_more));
    m_more->setFocusPolicy(Qt::StrongFocus);
    m_more->hide();
    connect(m_more->menu(), &QMenu::aboutToShow, this, [this] { fillMenu(); });

    auto *row = new QHBoxLayout(this);
    layout::setMargins(row, 2 * layout::unit);
    row->setSpacing(layout::unit);
    for (QWidget *widget : left)
        row->addWidget(widget);
    row->addWidget(text, 1);
    for (QWidget *widget : std::as_const(m_right))
        row->addWidget(widget);
    row->addWidget(m_more);
    row->addWidget(m_last);
}

QSize KeyRow::minimumSizeHint() const
{
    return {widthOf(m_left) + widthOf(m_more) + widthOf(m_last) + 4 * layout::unit, QWidget::minimumSizeHint().height()};
}

void KeyRow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fit();
}

void KeyRow::fit()
{
    int room = width() - widthOf(m_left) - widthOf(m_last) - 4 * layout::unit;
    const bool all = widthOf(m_right) <= room;
    if (!all)
        room -= widthOf(m_more);
    for (QWidget *widget : std::as_const(m_right)) {
        room -= widthOf(widget);
        widget->setVisible(room >= 0);
    }
    m_more->setVisible(!all);
}

// Buttons are asked when the menu opens: captions and what is enabled change with the tab and the row.
void KeyRow::fillMenu()
{
    m_more->menu()->clear();
    for (QWidget *widget : std::as_const(m_right)) {
        auto *button = qobject_cast<QAbstractButton *>(widget);
        if (!button || !button->isHidden())
            continue;
        QAction *action = m_more->menu()->addAction(button->icon(), button->text().isEmpty() ? button->accessibleName() : button->text());
        action->setToolTip(button->toolTip());
        action->setEnabled(button->isEnabled());
        connect(action, &QAction::triggered, button, &QAbstractButton::click);
    }
}

}
