#pragma once

#include <QWidget>

class QToolButton;

namespace vorel::controls {

// The row of a screen's buttons: those of the record at the left, a line of text, those of the screen at the right. Where
// the width does not do for all, the surplus of the right ones goes into a menu; the last one (Close) always stays.
class KeyRow : public QWidget {
    Q_OBJECT
public:
    KeyRow(const QWidgetList &left, QWidget *text, const QWidgetList &right, QWidget *parent);
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void fit();
    void fillMenu();

    QWidgetList m_left, m_right;        // m_right without the last
    QWidget *m_last;
    QToolButton *m_more;                // objectName "cmdMore"
};

}
