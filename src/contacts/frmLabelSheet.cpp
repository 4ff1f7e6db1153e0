#include "contacts/frmLabelSheet.h"

#include "platform/controls/colours.h"
#include "platform/controls/layout.h"
#include "print/labels.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace vorel {

using namespace Qt::StringLiterals;
namespace layout = controls::layout;

namespace {

constexpr int labelColumns = 2, labelRows = labelsPerSheet / labelColumns;
constexpr double sheetShape = 210.0 / 297.0;
constexpr int sheetPad = layout::unit, labelGap = 3;

}

frmLabelSheet::frmLabelSheet(QWidget *parent) : QWidget(parent)
{
    setObjectName(u"Picture1"_s);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setToolTip(u"Click the label to start on"_s);
    setAccessibleName(u"Sheet of labels"_s);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setStart(1);
}

QSize frmLabelSheet::sizeHint() const
{
    return {32 * layout::unit, static_cast<int>(32 * layout::unit / sheetShape)};
}

QSize frmLabelSheet::minimumSizeHint() const
{
    return {20 * layout::unit, static_cast<int>(20 * layout::unit / sheetShape)};
}

void frmLabelSheet::setStart(int number)
{
    m_start = std::clamp(number, 1, labelsPerSheet);
    setAccessibleDescription(u"Start on label %1 of %2"_s.arg(m_start).arg(labelsPerSheet));
    update();
}

void frmLabelSheet::setCount(int labels)
{
    m_count = labels;
    update();
}

QRect frmLabelSheet::sheet() const
{
    const QRect room = rect().adjusted(2, 2, -3, -3);
    QSize size(room.height() * sheetShape < room.width() ? static_cast<int>(room.height() * sheetShape) : room.width(), 0);
    size.setHeight(static_cast<int>(size.width() / sheetShape));
    QRect place({}, size);
    place.moveCenter(room.center());
    return place;
}

QRect frmLabelSheet::labelRect(int number) const
{
    const QRect inner = sheet().adjusted(sheetPad, sheetPad, -sheetPad, -sheetPad);
    const int column = (number - 1) % labelColumns, row = (number - 1) / labelColumns;
    const auto edge = [](int from, int length, int part, int parts) { return from + length * part / parts; };
    const int left = edge(inner.left(), inner.width(), column, labelColumns), right = edge(inner.left(), inner.width(), column + 1, labelColumns);
    const int top = edge(inner.top(), inner.height(), row, labelRows), bottom = edge(inner.top(), inner.height(), row + 1, labelRows);
    return QRect(QPoint(left, top), QPoint(right, bottom)).adjusted(labelGap, labelGap, -labelGap, -labelGap);
}

void frmLabelSheet::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette &colours = palette();
    const QColor base = colours.color(QPalette::Base), text = colours.color(QPalette::Text), accent = colours.color(QPalette::Highlight);
    painter.setPen(controls::hairline(colours));
    painter.setBrush(base);
    painter.drawRoundedRect(QRectF(sheet()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    QFont font = painter.font();
    font.setPointSizeF(font.pointSizeF() * 1.2);
    painter.setFont(font);
    for (int number = 1; number <= labelsPerSheet; ++number) {
        const QRectF place = QRectF(labelRect(number)).adjusted(0.5, 0.5, -0.5, -0.5);
        const bool isUsed = number < m_start, isStart = number == m_start, isPrinted = !isUsed && number < m_start + m_count;
        const QColor back = isPrinted ? controls::blend(base, accent, 0.28) : isUsed ? controls::blend(base, text, 0.12) : base;
        painter.setBrush(back);
        painter.setPen(isStart ? QPen(accent, 2) : QPen(controls::blend(base, text, 0.35), 1));
        painter.drawRoundedRect(place, 4, 4);
        if (isUsed) {                       // hatched, so that its shade alone does not carry the meaning
            painter.setPen(Qt::NoPen);
            painter.setBrush(QBrush(controls::blend(base, text, 0.25), Qt::BDiagPattern));
            painter.drawRoundedRect(place, 4, 4);
        }
        font.setBold(isStart);
        painter.setFont(font);
        painter.setPen(isUsed ? controls::blend(text, base, 0.35) : controls::readable(text, back));
        painter.drawText(place, Qt::AlignCenter, QString::number(number));
    }
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(accent, 1, Qt::DotLine));
        painter.drawRoundedRect(QRectF(labelRect(m_start)).adjusted(3.5, 3.5, -3.5, -3.5), 3, 3);
    }
}

void frmLabelSheet::choose(int number)
{
    if (number < 1 || number > labelsPerSheet)
        return;
    setStart(number);
    emit startChosen(number);
}

void frmLabelSheet::mousePressEvent(QMouseEvent *event)
{
    for (int number = 1; number <= labelsPerSheet; ++number)
        if (labelRect(number).adjusted(-labelGap, -labelGap, labelGap, labelGap).contains(event->pos()))
            return choose(number);
}

void frmLabelSheet::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        return choose(m_start - 1);
    case Qt::Key_Right:
        return choose(m_start + 1);
    case Qt::Key_Up:
        return choose(m_start - labelColumns);
    case Qt::Key_Down:
        return choose(m_start + labelColumns);
    case Qt::Key_Home:
        return choose(1);
    case Qt::Key_End:
        return choose(labelsPerSheet);
    default:
        QWidget::keyPressEvent(event);
    }
}

}
