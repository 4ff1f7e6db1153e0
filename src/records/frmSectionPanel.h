#pragma once

#include <QImage>
#include <QWidget>
#include <vector>

class QFormLayout;
class QVBoxLayout;

namespace vorel {

// One panel of a record screen: a form that scrolls where space is short, over a faint picture.
class SectionPanel : public QWidget {
    Q_OBJECT
public:
    explicit SectionPanel(const QString &name, int columns = 1, QWidget *parent = nullptr);

    // A column of fields; the last one for a number that is too high.
    QFormLayout *form(int column = 0) { return m_forms[std::min(static_cast<std::size_t>(column), m_forms.size() - 1)]; }
    QVBoxLayout *column() { return m_column; }      // the fields are its first item
    // The background, and the picture on it: as strong as the text on it stays readable.
    void setGround(const QColor &back, const QImage &picture);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QVBoxLayout *m_column;
    std::vector<QFormLayout *> m_forms;
    QColor m_back;
    QImage m_picture;
    QPixmap m_scaled;
    double m_strength = 0;
};

}
