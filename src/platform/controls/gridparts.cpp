#include "platform/controls/gridparts.h"

#include "platform/controls/colours.h"
#include "platform/controls/griddelegate.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyleOption>
#include <QTableView>
#include <array>

namespace vorel::controls {

using namespace Qt::StringLiterals;

namespace {

constexpr int edgeReach = 3;            // pixels around a row's edge that drag it
constexpr int minRowHeight = 12;        // still a line that can be dragged back
constexpr int maxRowHeight = 600;       // still less than a screen

}

QColor headBack(const QPalette &palette)
{
    return blend(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.06);
}

GridTitle::GridTitle(QWidget *parent) : QLabel(parent)
{
    setObjectName(u"title"_s);
    setTextFormat(Qt::PlainText);
}

QSize GridTitle::sizeHint() const
{
    QFont bold = font();
    bold.setBold(true);
    return {0, QFontMetrics(bold).height() + cellPadding};
}

void GridTitle::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        emit doubleClicked(event->pos());
}

void GridTitle::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), headBack(palette()));
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(palette().color(QPalette::Text));
    const QRect room = rect().adjusted(cellPadding, 0, -cellPadding, 0);
    const QString line = QFontMetrics(bold).elidedText(QString(text()).replace(u'\n', u' '), Qt::ElideRight, room.width());
    painter.drawText(room, static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), line);
}

GridHead::GridHead(QWidget *parent) : QHeaderView(Qt::Horizontal, parent)
{
    setObjectName(u"heads"_s);
    setSectionsClickable(true);
    setSectionResizeMode(QHeaderView::Interactive);
    setMinimumSectionSize(8);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(this, &QHeaderView::sectionResized, this, [this](int section) {
        if (m_pressed)
            m_resized = section;
    });
}

void GridHead::setTitleHeight(int pixels)
{
    m_titleHeight = pixels;
    updateGeometry();
    emit geometriesChanged();
}

QSize GridHead::sizeHint() const
{
    return {QHeaderView::sizeHint().width(), m_titleHeight + fontMetrics().height() + cellPadding};
}

void GridHead::mousePressEvent(QMouseEvent *event)
{
    m_pressed = event->button() == Qt::LeftButton;
    m_resized = -1;
    QHeaderView::mousePressEvent(event);
}

void GridHead::mouseReleaseEvent(QMouseEvent *event)
{
    QHeaderView::mouseReleaseEvent(event);
    m_pressed = false;
    if (const int section = std::exchange(m_resized, -1); section >= 0)
        emit userResized(section);
}

void GridHead::mouseDoubleClickEvent(QMouseEvent *event)
{
    const bool onEdge = viewport()->cursor().shape() == Qt::SplitHCursor || cursor().shape() == Qt::SplitHCursor;
    QHeaderView::mouseDoubleClickEvent(event);
    if (!onEdge && event->button() == Qt::LeftButton)
        emit doubleClicked(event->pos());
}

void GridHead::paintEvent(QPaintEvent *event)
{
    QHeaderView::paintEvent(event);
    const int end = length() - offset();
    if (end >= viewport()->width())
        return;
    QPainter painter(viewport());
    const QRect rest(end, 0, viewport()->width() - end, viewport()->height());
    painter.fillRect(rest, headBack(palette()));
    painter.setPen(hairline(palette()));
    painter.drawLine(rest.bottomLeft(), rest.bottomRight());
}

void GridHead::paintSection(QPainter *painter, const QRect &rect, int section) const
{
    const QRect cell = rect.adjusted(0, m_titleHeight, 0, 0);
    painter->save();
    painter->fillRect(rect, headBack(palette()));
    painter->setPen(hairline(palette()));
    painter->drawLine(cell.bottomLeft(), cell.bottomRight());
    painter->drawLine(cell.topRight() + QPoint(0, 4), cell.bottomRight() - QPoint(0, 4));
    QRect room = cell.adjusted(cellPadding, 0, -cellPadding, 0);
    if (isSortIndicatorShown() && sortIndicatorSection() == section) {
        QStyleOptionHeader arrow;
        arrow.initFrom(this);
        arrow.sortIndicator = sortIndicatorOrder() == Qt::AscendingOrder ? QStyleOptionHeader::SortDown : QStyleOptionHeader::SortUp;
        arrow.rect = QRect(room.right() - 9, room.center().y() - 4, 10, 10);
        style()->drawPrimitive(QStyle::PE_IndicatorHeaderArrow, &arrow, painter, this);
        room.setRight(arrow.rect.left() - 4);
    }
    painter->setFont(font());
    painter->setPen(blend(palette().color(QPalette::Text), headBack(palette()), 0.2));
    const QString caption = model()->headerData(section, Qt::Horizontal).toString();
    const int alignment = model()->headerData(section, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
    painter->drawText(room, alignment | static_cast<int>(Qt::AlignVCenter),
                      fontMetrics().elidedText(caption, Qt::ElideRight, room.width()));
    painter->restore();
}

QSize GridHead::sectionSizeFromContents(int section) const
{
    const bool isSorted = isSortIndicatorShown() && sortIndicatorSection() == section;
    const QString caption = model()->headerData(section, Qt::Horizontal).toString();
    return {fontMetrics().horizontalAdvance(caption) + 2 * cellPadding + 2 + (isSorted ? 14 : 0),
            fontMetrics().height() + cellPadding};
}

RowSelectors::RowSelectors(QWidget *parent) : QHeaderView(Qt::Vertical, parent)
{
    setObjectName(u"selectors"_s);
    setSectionsClickable(true);
    setSectionResizeMode(QHeaderView::Fixed);
    setMinimumSectionSize(minRowHeight);
    viewport()->setMouseTracking(true);
}

void RowSelectors::setRowHeight(int pixels)
{
    const int height = std::clamp(pixels, minRowHeight, maxRowHeight);
    if (height == defaultSectionSize())
        return;
    {
        // One signal for all rows, not one for each of a hundred thousand.
        const QSignalBlocker quiet(this);
        setDefaultSectionSize(height);
    }
    viewport()->update();
    emit heightChanged();
}

QSize RowSelectors::sizeHint() const
{
    return {22, QHeaderView::sizeHint().height()};
}

int RowSelectors::edgeAt(int y) const
{
    const int row = logicalIndexAt(y + edgeReach);
    if (row > 0 && std::abs(sectionViewportPosition(row) - y) <= edgeReach)
        return row - 1;
    const int last = count() - 1;
    return last >= 0 && std::abs(sectionViewportPosition(last) + sectionSize(last) - y) <= edgeReach ? last : -1;
}

void RowSelectors::mousePressEvent(QMouseEvent *event)
{
    const int row = event->button() == Qt::LeftButton ? edgeAt(event->pos().y()) : -1;
    if (row < 0) {
        QHeaderView::mousePressEvent(event);
        return;
    }
    m_dragging = true;
    m_dragTop = sectionViewportPosition(row);
}

void RowSelectors::mouseMoveEvent(QMouseEvent *event)
{
    if (m_dragging) {
        setRowHeight(event->pos().y() - m_dragTop);
        return;
    }
    viewport()->setCursor(event->buttons() == Qt::NoButton && edgeAt(event->pos().y()) >= 0 ? Qt::SplitVCursor : Qt::ArrowCursor);
    QHeaderView::mouseMoveEvent(event);
}

void RowSelectors::mouseReleaseEvent(QMouseEvent *event)
{
    if (!std::exchange(m_dragging, false))
        QHeaderView::mouseReleaseEvent(event);
    else
        emit userResized();
}

void RowSelectors::paintEvent(QPaintEvent *event)
{
    QHeaderView::paintEvent(event);
    const int end = length() - offset();
    if (end < viewport()->height()) {
        QPainter painter(viewport());
        painter.fillRect(0, end, viewport()->width(), viewport()->height() - end, headBack(palette()));
    }
}

void RowSelectors::paintSection(QPainter *painter, const QRect &rect, int row) const
{
    painter->save();
    painter->fillRect(rect, headBack(palette()));
    painter->setPen(hairline(palette()));
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    const auto *view = qobject_cast<const QTableView *>(parentWidget());
    const auto *rows = view ? qobject_cast<const GridModel *>(view->model()) : nullptr;
    painter->setPen(palette().color(QPalette::Text));
    if (rows && rows->draft().row == row) {
        // A pencil: the row holds what is not written yet.
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(palette().color(QPalette::Text), 1.2));
        painter->translate(QRectF(rect).center());
        painter->rotate(45);
        painter->drawRect(QRectF(-1.8, -6, 3.6, 8.5));
        const std::array tip {QPointF(-1.8, 2.5), QPointF(0, 6), QPointF(1.8, 2.5)};
        painter->drawPolyline(tip.data(), static_cast<int>(tip.size()));
    } else if (view && view->currentIndex().row() == row) {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(palette().color(QPalette::Text));
        const QPointF middle = QRectF(rect).center();
        const std::array arrow {middle + QPointF(-3, -4.5), middle + QPointF(3.5, 0), middle + QPointF(-3, 4.5)};
        painter->drawPolygon(arrow.data(), static_cast<int>(arrow.size()));
    } else if (rows && rows->isNewRow(row)) {
        painter->drawText(rect, static_cast<int>(Qt::AlignCenter), u"*"_s);
    }
    painter->restore();
}

}
