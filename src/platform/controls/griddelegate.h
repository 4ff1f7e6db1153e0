#pragma once

#include "platform/controls/gridmodel.h"

#include <QPointer>
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
    static QRect endButtonRect(const QRect &cell);      // at the end of a text cell
    static QRect boxRect(const QRect &cell);            // of a check that can be toggled
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    // The cell that is open for typing (grideditor.cpp).
    QWidget *openEditor() const { return m_editor; }
    void forgetEditor(const QWidget *editor);
    void openList() const;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

signals:
    void opened() const;

private:
    struct Look {
        QColor back, fore;
        bool bold = false;
    };
    bool keepsRowColour(const QStyleOptionViewItem &option, const QModelIndex &index) const;
    Look look(const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void paintCheck(QPainter *painter, const QRect &cell, const QColor &fore) const;
    void paintBox(QPainter *painter, const QRect &cell, const QColor &fore) const;
    void paintText(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index, const Look &shown) const;
    int paintEndMark(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index, const QColor &fore) const;
    void paintButton(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;

    const GridModel &m_model;
    QString m_activeStyle;
    mutable QPointer<QWidget> m_editor;
};

}
