#pragma once

#include <QLabel>

namespace vorel::controls {

// Holds the whole text and shows what fits: of a path both ends. A long text never widens its parent; the tool tip shows it whole.
class ElidedLabel : public QLabel {
public:
    explicit ElidedLabel(QWidget *parent = nullptr);
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};

}
