#pragma once

#include "platform/controls/gridmodel.h"

#include <QStyledItemDelegate>

namespace vorel::controls {

inline constexpr int cellPadding = 8;

// The lines of a text that fit the rectangle, the last one elided.
QString fittedText(const QString &text, const QFontMetrics &metrics, QSize room);

class GridDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    GridDelegate(const GridModel &model, QObject *parent) : QStyledItemDelegate(parent), m_model(model) {}

    void setActiveStyle(const QString &name) { m_activeStyle = name; }
    static QRect buttonRect(const QRect &cell);
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    struct Look {
        QColor back, fore;
        bool bold = false;
    };
    Look look(const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void paintCheck(QPainter *painter, const QRect &cell, const QColor &fore) const;
    void paintButton(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;

    const GridModel &m_model;
    QString m_activeStyle;
};

}
