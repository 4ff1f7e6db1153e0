#include "frame/frmCaddyRail.h"

#include "frame/frmCaddyIcons.h"
#include "platform/controls/colours.h"
#include "platform/controls/layout.h"
#include "session/sections.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::layout::unit;

namespace {

constexpr int iconSide = 16;

// The sections of the rail in their groups: what a day needs first, what is kept for the shelf last.
std::vector<const SectionDesign *> railOrder()
{
    std::vector<const SectionDesign *> sections = categoryButtons();
    std::sort(sections.begin(), sections.end(), [](const SectionDesign *a, const SectionDesign *b) {
        return std::pair(a->button->group, a->button->place) < std::pair(b->button->group, b->button->place);
    });
    return sections;
}

}

RailButton::RailButton(int index, const QString &caption, const QString &toolTip, QWidget *parent)
    : QAbstractButton(parent)
{
    setObjectName(u"cmdCat(%1)"_s.arg(index));
    setText(caption);
    setToolTip(toolTip);
    setAccessibleName(caption.trimmed());
    setAccessibleDescription(toolTip.trimmed());
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setIconSize({iconSide, iconSide});
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    setMaximumHeight(32);
}

QSize RailButton::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    return {3 * unit + iconSide + metrics.horizontalAdvance(text().trimmed()) + unit, std::max(metrics.height() + 4, 21)};
}

void RailButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette &colours = palette();
    const QRectF ground = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QColor fore = colours.color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText);
    if (isChecked()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(controls::blend(colours.color(QPalette::Window), colours.color(QPalette::Highlight), 0.28));
        painter.drawRoundedRect(ground, 4, 4);
        painter.setBrush(colours.color(QPalette::Highlight));
        painter.drawRoundedRect(QRectF(0, 3, 3, height() - 6), 1.5, 1.5);
    } else if (isEnabled() && (underMouse() || isDown())) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(controls::blend(colours.color(QPalette::Window), fore, isDown() ? 0.16 : 0.08));
        painter.drawRoundedRect(ground, 4, 4);
    }
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colours.color(QPalette::Highlight), 1.2));
        painter.drawRoundedRect(ground, 4, 4);
    }
    const QRect iconPlace(unit + unit / 2, (height() - iconSide) / 2, iconSide, iconSide);
    icon().paint(&painter, iconPlace, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    painter.setPen(fore);
    const QRect words = rect().adjusted(iconPlace.right() + unit + 1, 0, -unit / 2, 0);
    painter.drawText(words, Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(text().trimmed(), Qt::ElideRight, words.width()));
}

void RailButton::enterEvent(QEnterEvent *event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void RailButton::leaveEvent(QEvent *event)
{
    QAbstractButton::leaveEvent(event);
    update();
}

// Return turns to the section like the space bar.
void RailButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

Rail::Rail(QWidget *parent) : QScrollArea(parent)
{
    setObjectName(u"Rail"_s);
    setAccessibleName(u"Sections"_s);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(unit, unit, unit / 2, unit / 2);
    column->setSpacing(0);
    m_buttons.resize(categoryButtons().size());
    RailGroup group = RailGroup::Reminders;
    for (const SectionDesign *section : railOrder()) {
        const ButtonDesign &design = *section->button;
        if (design.group != group)
            column->addSpacing(unit);
        group = design.group;
        auto *button = new RailButton(design.index, design.caption, design.toolTip);
        m_buttons[static_cast<std::size_t>(design.index)] = button;
        column->addWidget(button, 1);
    }
    column->addSpacing(unit);
    column->addStretch(1);
    setWidget(content);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    applyIcons();
    fixWidth();
}

std::vector<int> Rail::order()
{
    std::vector<int> indexes;
    for (const SectionDesign *section : railOrder())
        indexes.push_back(section->button->index);
    return indexes;
}

void Rail::applyIcons()
{
    for (const SectionDesign *section : categoryButtons())
        button(section->button->index)->setIcon(caddyIcon(section->button->icon));
}

QSize Rail::sizeHint() const
{
    return {widget()->minimumSizeHint().width(), widget()->sizeHint().height()};
}

void Rail::changeEvent(QEvent *event)
{
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange && widget())
        fixWidth();
}

void Rail::fixWidth()
{
    setFixedWidth(widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width());
}

}
