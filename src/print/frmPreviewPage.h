#pragma once

#include "platform/printer/page.h"

#include <QImage>
#include <QPainter>
#include <QWidget>

namespace vorel {

// The box "Page" of the preview: a sheet of paper that the player draws on, with as many dots as the screen has.
class PreviewPageBox : public QWidget {
    Q_OBJECT
public:
    explicit PreviewPageBox(QWidget *parent);
    ~PreviewPageBox() override;

    printer::Page &page() { return m_page; }
    void sizeToPage();                  // the page has got its paper: the box is as large
    void clear();                       // from here on the player draws
    void finish();                      // and has drawn
    const QImage &picture() const { return m_image; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void begin();

    printer::Page m_page;
    QImage m_image;
    QPainter m_painter;
};

}
