#pragma once

#include <QPixmap>
#include <QWidget>

namespace vorel {

// The background of the main screen: the palette's or a chosen colour, and over it the user's picture, pale enough
// for the words in front of it.
class CaddyGround : public QWidget {
    Q_OBJECT
public:
    explicit CaddyGround(QWidget *parent = nullptr);

    void setPicture(const QString &file);       // "" or not a picture: the plain background
    bool hasPicture() const { return !m_picture.isNull(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QImage m_picture;
    QPixmap m_fitted;                           // of the present size
};

}
