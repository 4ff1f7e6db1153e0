#pragma once

#include <QWidget>
#include <memory>

class QImage;

// A picture in a box: scaled to fit with its proportions kept, centred, turned as its camera says.
namespace vorel::controls {

class PictureBox : public QWidget {
    Q_OBJECT
public:
    explicit PictureBox(const QString &name, QWidget *parent = nullptr);    // name: the objectName, e.g. "picImage"
    ~PictureBox() override;

    // Shows a file. A large one is decoded off this thread: Shown follows. A file that is not a picture, is damaged or is
    // too large leaves the box without a picture (Shown(false)); the box stays as it is until then.
    void showFile(const QString &path);
    void clear();                           // no file: nothing is painted
    const QString &path() const;            // of the file asked for last
    QSize pictureSize() const;              // pixels of the picture in the file, turned; invalid: none is shown
    bool isShown() const;
    bool isDecoding() const;                // Shown is still to come
    void setUnreadableText(const QString &text);    // painted in place of a file that cannot be shown; "" = nothing

signals:
    void Shown(bool readable);              // after each showFile, also where it was quick
    void Clicked();                         // mouse, Enter or the space bar

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void decode();
    void paintPicture(QPainter &painter);
    void take(quint64 token, const QImage &image, QSize size);

    struct Private;
    std::unique_ptr<Private> d;
};

}
