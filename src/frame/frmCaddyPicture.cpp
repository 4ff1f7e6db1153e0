#include "frame/frmCaddyPicture.h"

#include "media/pictures.h"
#include "platform/controls/colours.h"
#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/layout.h"
#include "platform/controls/picturebox.h"
#include "platform/desktop/picturefile.h"

#include <QPainter>
#include <QPainterPath>
#include <QScrollArea>
#include <QScrollBar>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::layout::unit;

namespace {

constexpr int bannerHeight = 128;
constexpr int titleX = controls::toPixels(50), titleY = controls::toPixels(1100);

}

DetailPane::DetailPane(QWidget *parent) : QWidget(parent), m_image(new controls::PictureBox(u"picImage"_s, this)), m_scroll(new QScrollArea(this)),
    m_details(new QLabel)
{
    setObjectName(u"picDetails"_s);
    setAccessibleName(u"Picture and details of the record"_s);
    m_image->setAccessibleName(u"Picture of the record"_s);
    m_image->setFocusPolicy(Qt::NoFocus);
    m_image->hide();
    controls::on(m_image, &controls::PictureBox::Shown, this, [this](bool readable) { showImage(readable); });
    m_details->setObjectName(u"lblDetails"_s);
    m_details->setTextFormat(Qt::RichText);
    m_details->setWordWrap(true);
    m_details->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_details->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setWidgetResizable(true);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setWidget(m_details);
    m_scroll->viewport()->setAutoFillBackground(false);
    m_details->setAutoFillBackground(false);
    setMinimumWidth(200);
}

void DetailPane::setPaper(const QString &file)
{
    constexpr QSize most(1600, 1200);       // the user may have put a file of any size in its place
    m_paper = QPixmap::fromImage(desktop::readPicture(file, most).image);
    update();
}

void DetailPane::showBanner(const QString &title, const QString &smallPrint)
{
    m_title = title;
    m_smallPrint = smallPrint;
    m_image->clear();
    m_image->setToolTip({});
    m_image->hide();
    m_details->clear();
    setToolTip({});
    update();
}

void DetailPane::showPicture(const QString &file)
{
    if (const QString found = pictureFile(file); !found.isEmpty())
        return m_image->showFile(found);
    m_image->clear();
    showImage(false);
}

void DetailPane::showImage(bool readable)
{
    m_image->setToolTip(readable ? m_image->path() : QString());
    m_image->setVisible(readable);
    placeParts();
    update();
}

void DetailPane::showDetails(const QStringList &labels, const QStringList &texts)
{
    const QString pale = controls::blend(palette().color(QPalette::WindowText), palette().color(QPalette::Window), 0.35).name();
    QString html;
    for (qsizetype i = 0; i < labels.size(); ++i) {
        const QString label = labels[i].isEmpty() ? QString()
                                                  : u"<span style='color:%1'>%2</span><br>"_s.arg(pale, labels[i].toHtmlEscaped());
        html += u"<p style='margin:0 0 8px 0'>%1%2</p>"_s
                    .arg(label, texts[i].toHtmlEscaped().replace(u"\r\n"_s, u"<br>"_s).replace(u'\n', u"<br>"_s));
    }
    if (html == m_details->text())
        return;
    m_details->setText(html);
    m_scroll->verticalScrollBar()->setValue(0);
    placeParts();
}

void DetailPane::showTip(const QString &heading, const QStringList &lines)
{
    QString html = u"<p style='margin:0 0 8px 0'><b>%1</b></p>"_s.arg(heading.toHtmlEscaped());
    for (const QString &line : lines)
        html += u"<p style='margin:0 0 8px 0'>%1</p>"_s.arg(line.toHtmlEscaped());
    m_details->setText(html);
    placeParts();
}

void DetailPane::placeParts()
{
    const int top = (m_image->isHidden() ? bannerHeight : bannerHeight + 4 * unit) + unit;
    m_image->setGeometry(unit, unit, width() - 2 * unit, bannerHeight + 3 * unit);
    m_scroll->setGeometry(unit, top + unit, width() - 2 * unit, std::max(0, height() - top - unit));
}

void DetailPane::resizeEvent(QResizeEvent *)
{
    placeParts();
}

void DetailPane::paintEvent(QPaintEvent *)
{
    if (!m_image->isHidden())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect banner(0, 0, width(), bannerHeight);
    QPainterPath round;
    round.addRoundedRect(banner, 6, 6);
    painter.setClipPath(round);
    QLinearGradient ground(banner.topLeft(), banner.bottomRight());
    ground.setColorAt(0, QColor(0x4b, 0x79, 0xa8));
    ground.setColorAt(1, QColor(0x24, 0x4a, 0x73));
    painter.fillRect(banner, ground);
    if (!m_paper.isNull())
        painter.drawPixmap(banner, m_paper);
    painter.setClipping(false);
    QFont big = font();
    big.setPointSize(16);
    big.setBold(true);
    painter.setFont(big);
    painter.setPen(Qt::white);
    const QFontMetrics metrics(big);
    painter.drawText(QRect(titleX + unit / 2, titleY, width() - titleX - unit, metrics.height()), Qt::AlignLeft | Qt::AlignTop,
                     metrics.elidedText(m_title, Qt::ElideRight, width() - titleX - unit));
    QFont fine = font();
    fine.setPointSize(8);
    painter.setFont(fine);
    const QRect line(titleX + unit / 2, titleY + metrics.height(), width() - titleX - unit, QFontMetrics(fine).height());
    painter.setPen(m_paper.isNull() ? QColor(0xe8, 0xee, 0xf5) : QColor(Qt::black));
    painter.drawText(line, Qt::AlignLeft | Qt::AlignTop,
                     QFontMetrics(fine).elidedText(m_smallPrint, Qt::ElideRight, line.width()));
}

}
