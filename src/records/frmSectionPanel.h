#pragma once

#include <QImage>
#include <QWidget>

class QFormLayout;
class QVBoxLayout;

namespace vorel {

// One panel of a record screen: a form that scrolls where there is little room, over a quiet picture.
class SectionPanel : public QWidget {
    Q_OBJECT
public:
    explicit SectionPanel(const QString &name, QWidget *parent = nullptr);

    QFormLayout *form() { return m_form; }
    QVBoxLayout *column() { return m_column; }      // the form is its first item
    // The ground, and the picture on it: as strong as the text that stands on it can bear.
    void setGround(const QColor &back, const QImage &picture);

    static QFormLayout *makeForm();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QVBoxLayout *m_column;
    QFormLayout *m_form;
    QColor m_back;
    QImage m_picture;
    QPixmap m_scaled;
    double m_strength = 0;
};

}
