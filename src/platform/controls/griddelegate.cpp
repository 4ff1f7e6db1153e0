#include "platform/controls/griddelegate.h"

#include "platform/controls/colours.h"

#include <QPainter>
#include <QStyle>
#include <array>

namespace vorel::controls {

using namespace Qt::StringLiterals;

QString fittedText(const QString &text, const QFontMetrics &metrics, QSize room)
{
    QString plain = text;
    plain.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    const int fitting = room.height() / std::max(1, metrics.lineSpacing());
    if (fitting < 2) {
        plain.replace(u'\n', u' ');
        return metrics.elidedText(plain, Qt::ElideRight, room.width());
    }
    QStringList lines;
    for (const QString &paragraph : plain.split(u'\n')) {
        qsizetype start = 0;
        do {
            // A line takes as many whole words as fit, and at least one word.
            qsizetype end = start, next = start;
            while (next < paragraph.size()) {
                qsizetype word = paragraph.indexOf(u' ', next + 1);
                word = word < 0 ? paragraph.size() : word;
                if (end > start && metrics.horizontalAdvance(paragraph.mid(start, word - start)) > room.width())
                    break;
                end = next = word;
            }
            const bool isLast = lines.size() == fitting - 1;
            const QString rest = isLast ? paragraph.mid(start) : paragraph.mid(start, end - start);
            lines.append(metrics.elidedText(rest, Qt::ElideRight, room.width()));
            start = end + 1;
        } while (start < paragraph.size() && lines.size() < fitting);
        if (lines.size() >= fitting)
            break;
    }
    return lines.join(u'\n');
}

// A row that says something by its colour keeps it while the user is elsewhere; two lines mark it as the current one. The
// tint of a single cell is not such a colour: it is dropped, so that a selected row looks uniform.
bool GridDelegate::keepsRowColour(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return !(option.widget && option.widget->hasFocus()) && m_model.styleSet(m_model.rowStyleName(index.row())).back.isValid();
}

GridDelegate::Look GridDelegate::look(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const bool selected = option.state & QStyle::State_Selected;
    const StyleSet active = selected && !m_activeStyle.isEmpty() ? m_model.styleSet(m_activeStyle) : StyleSet();
    const StyleSet own = m_model.styleSet(m_model.styleName(index.row(), index.column()));
    const bool keepsColour = keepsRowColour(option, index);
    const StyleSet base = m_model.styleSet({});
    const auto first = [](std::initializer_list<QColor> colours) {
        for (const QColor &c : colours) {
            if (c.isValid())
                return c;
        }
        return QColor();
    };

    Look result;
    result.bold = active.bold || own.bold || base.bold;
    if (active.back.isValid() || (selected && active.fore.isValid())) {
        result.back = first({active.back, own.back, base.back, option.palette.color(QPalette::Base)});
        result.fore = active.fore;
    } else if (selected && !keepsColour) {
        const auto group = option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
        result.back = option.palette.color(group, QPalette::Highlight);
        result.fore = option.palette.color(group, QPalette::HighlightedText);
    } else {
        result.back = first({own.back, base.back, option.palette.color(QPalette::Base)});
        result.fore = first({own.fore, own.back.isValid() ? QColor() : base.fore});
    }
    if (!result.fore.isValid())
        result.fore = result.back == option.palette.color(QPalette::Base) ? option.palette.color(QPalette::Text)
                                                                      : blackOrWhiteOn(result.back);
    result.fore = readable(result.fore, result.back);
    return result;
}

void GridDelegate::paintCheck(QPainter *painter, const QRect &cell, const QColor &fore) const
{
    // Drawn, not a theme's icon: it has the text's colour, whatever the row's style.
    const double size = std::min({14.0, cell.height() - 6.0, cell.width() - 4.0});
    const QPointF middle = QRectF(cell).center();
    const auto at = [&](double x, double y) { return middle + QPointF(x * size, y * size); };
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(fore, std::max(1.6, size / 7), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const std::array points {at(-0.38, 0.02), at(-0.10, 0.30), at(0.40, -0.32)};
    painter->drawPolyline(points.data(), static_cast<int>(points.size()));
}

QRect GridDelegate::endButtonRect(const QRect &cell)
{
    const int width = std::min(24, cell.width() / 3);
    return {cell.right() - width - 1, cell.top() + 1, width, cell.height() - 3};
}

QRect GridDelegate::boxRect(const QRect &cell)
{
    const int side = std::min({16, cell.height() - 3, cell.width() - 4});
    QRect box(0, 0, side, side);
    box.moveCenter(cell.center());
    return box;
}

void GridDelegate::paintBox(QPainter *painter, const QRect &cell, const QColor &fore) const
{
    QColor line = fore;
    line.setAlphaF(0.55f);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(line);
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(boxRect(cell)).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
}

// The end of a cell that offers more than its text: a button, or a list. Shown where the cursor or the pointer is.
int GridDelegate::paintEndMark(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index,
                               const QColor &fore) const
{
    const CellEdit *edit = m_model.canChange(index.row(), index.column()) ? m_model.edit(index.column()) : nullptr;
    const bool isNear = option.state & (QStyle::State_HasFocus | QStyle::State_MouseOver);
    if (!edit || !isNear || (!edit->hasButton && !edit->list))
        return 0;
    const QRect face = endButtonRect(option.rect);
    const QPointF middle = QRectF(face).center();
    painter->setRenderHint(QPainter::Antialiasing);
    if (edit->hasButton) {
        const QColor ground = option.palette.color(QPalette::Button), dots = option.palette.color(QPalette::ButtonText);
        painter->setPen(blend(ground, dots, 0.35));
        painter->setBrush(ground);
        painter->drawRoundedRect(QRectF(face).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
        painter->setPen(Qt::NoPen);
        painter->setBrush(dots);
        for (const int x : {-5, 0, 5})
            painter->drawEllipse(middle + QPointF(x, 0), 1.3, 1.3);
    } else {
        painter->setPen(QPen(fore, 1.4));
        painter->setBrush(Qt::NoBrush);
        const std::array points {middle + QPointF(-4, -2), middle + QPointF(0, 2), middle + QPointF(4, -2)};
        painter->drawPolyline(points.data(), static_cast<int>(points.size()));
    }
    painter->setRenderHint(QPainter::Antialiasing, false);
    return face.width() + 2;
}

void GridDelegate::paintText(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index,
                             const Look &shown) const
{
    const int end = paintEndMark(painter, option, index, shown.fore);
    QFont font = option.font;
    font.setBold(font.bold() || shown.bold);
    painter->setFont(font);
    painter->setPen(shown.fore);
    const QRect room = option.rect.adjusted(cellPadding, 1, -std::max(cellPadding, end), -1);
    const QString text = fittedText(index.data().toString(), QFontMetrics(font), room.size());
    const Qt::Alignment alignment = m_model.columns()[static_cast<std::size_t>(index.column())].alignment;
    painter->drawText(room, static_cast<int>(alignment | Qt::AlignVCenter), text);
}

QRect GridDelegate::buttonRect(const QRect &cell)
{
    QRect face(0, 0, std::min(cell.width() - 4, 28), std::min(cell.height() - 4, 22));
    face.moveCenter(cell.center());
    return face;
}

void GridDelegate::paintButton(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QRect face = buttonRect(option.rect);
    if (face.width() < 6 || face.height() < 6)
        return;
    const QPalette &palette = option.palette;
    const bool hovered = option.state & QStyle::State_MouseOver;
    const QColor button = palette.color(QPalette::Button), text = palette.color(QPalette::ButtonText);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(blend(button, text, 0.35));
    painter->setBrush(hovered ? blend(button, palette.color(QPalette::Highlight), 0.3) : button);
    painter->drawRoundedRect(QRectF(face).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    painter->setPen(QPen(text, 1.2));
    painter->setBrush(Qt::NoBrush);
    if (m_model.styleName(index.row(), index.column()).compare(u"PICTURE"_s, Qt::CaseInsensitive) != 0) {
        painter->setBrush(text);
        painter->setPen(Qt::NoPen);
        for (const int x : {-5, 0, 5})
            painter->drawEllipse(QRectF(face).center() + QPointF(x, 0), 1.3, 1.3);
        return;
    }
    // A framed landscape: the row has a picture.
    QRectF frame(0, 0, 15, 11);
    frame.moveCenter(QRectF(face).center());
    painter->drawRect(frame);
    const auto at = [&](double x, double y) { return frame.topLeft() + QPointF(x, y); };
    const std::array hills {at(1.5, 9.5), at(5.5, 4.5), at(8.5, 7.5), at(10.5, 5.5), at(13.5, 9.5)};
    painter->drawPolyline(hills.data(), static_cast<int>(hills.size()));
    painter->drawEllipse(at(11, 3), 0.9, 0.9);
}

void GridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const Look shown = look(option, index);
    painter->save();
    painter->fillRect(option.rect, shown.back);
    painter->setPen(hairline(option.palette));
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    if (option.state & QStyle::State_Selected && keepsRowColour(option, index)) {
        const QColor mark = option.palette.color(QPalette::Active, QPalette::Highlight);
        constexpr int thickness = 2;
        for (const int top : {option.rect.top(), option.rect.bottom() + 1 - thickness})
            painter->fillRect(option.rect.left(), top, option.rect.width(), thickness, readable(mark, shown.back));
    }
    painter->setClipRect(option.rect);
    const auto style = m_model.columns()[static_cast<std::size_t>(index.column())].style;
    const bool isNew = m_model.isNewRow(index.row()) && m_model.draft().row != index.row();
    if (style == GridColumn::Style::Check && !isNew) {
        if (m_model.canChange(index.row(), index.column()))
            paintBox(painter, option.rect, shown.fore);
        if (m_model.isChecked(index.row(), index.column()))
            paintCheck(painter, option.rect, shown.fore);
    } else if (style == GridColumn::Style::Button && !m_model.isNewRow(index.row())) {
        paintButton(painter, option, index);
    } else {
        paintText(painter, option, index, shown);
    }
    painter->restore();
    if (option.state & QStyle::State_HasFocus && option.widget) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.backgroundColor = shown.back;
        option.widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, option.widget);
    }
}

}
