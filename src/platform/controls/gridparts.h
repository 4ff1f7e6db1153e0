#pragma once

#include <QHeaderView>
#include <QLabel>

// The frame around the grid's cells: the title line, the column heads, the record selectors.
namespace vorel::controls {

QColor headBack(const QPalette &palette);

class GridTitle : public QLabel {
    Q_OBJECT
public:
    explicit GridTitle(QWidget *parent);
    QSize sizeHint() const override;

signals:
    void doubleClicked(QPoint where);

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};

// Leaves space above its sections for the title, which is drawn over it.
class GridHead : public QHeaderView {
    Q_OBJECT
public:
    explicit GridHead(QWidget *parent);
    void setTitleHeight(int pixels);
    QSize sizeHint() const override;

signals:
    void userResized(int section);
    void doubleClicked(QPoint where);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void paintSection(QPainter *painter, const QRect &rect, int section) const override;
    QSize sectionSizeFromContents(int section) const override;

private:
    int m_titleHeight = 0;
    bool m_pressed = false;
    int m_resized = -1;
};

// Dragging any row's lower edge sets the height of all rows.
class RowSelectors : public QHeaderView {
    Q_OBJECT
public:
    explicit RowSelectors(QWidget *parent);
    void setRowHeight(int pixels);
    QSize sizeHint() const override;

signals:
    void heightChanged();
    void userResized();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void paintSection(QPainter *painter, const QRect &rect, int row) const override;

private:
    int edgeAt(int y) const;        // the row whose lower edge is under the pointer, -1 = none
    int m_dragTop = 0;
    bool m_dragging = false;
};

}
