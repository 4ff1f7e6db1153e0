#pragma once

#include <QLabel>
#include <QPixmap>
#include <QWidget>

class QScrollArea;

namespace vorel {

namespace controls {
class PictureBox;
}

// picDetails: the pane at the right. With no record picture on it, it shows the product's banner.
class DetailPane : public QWidget {
    Q_OBJECT
public:
    explicit DetailPane(QWidget *parent = nullptr);

    void setPaper(const QString &file);                 // the background of the banner; "" = a plain one
    void showBanner(const QString &title, const QString &smallPrint);
    // The record's picture; a large one comes a moment later. If the file is not a picture, the banner stays.
    void showPicture(const QString &file);
    // What the row says, a line a field.
    void showDetails(const QStringList &labels, const QStringList &texts);
    // What a button is for, in the place of the details until they are shown again.
    void showTip(const QString &heading, const QStringList &lines);

protected:
    void paintEvent(QPaintEvent *) override;
    void resizeEvent(QResizeEvent *) override;

private:
    void placeParts();
    void showImage(bool readable);

    controls::PictureBox *m_image;
    QScrollArea *m_scroll;
    QLabel *m_details;
    QPixmap m_paper;
    QString m_title, m_smallPrint;
};

}
