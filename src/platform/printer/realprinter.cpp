#include "platform/printer/realprinter.h"

#include "platform/basic/error.h"

#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

namespace vorel::printer {

using namespace Qt::StringLiterals;

namespace {

constexpr int printerError = 482;

basic::Error unreachable(const QString &name)
{
    return {printerError, u"The printer \"%1\" cannot be reached. Nothing was printed; the pages can be saved as PDF."_s.arg(name)};
}

QPageLayout::Orientation orientationOf(int orientation)
{
    return orientation == Landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
}

class RealJob : public Job {
public:
    RealJob(const QPrinterInfo &info, const JobSettings &settings) : m_printer(info, QPrinter::HighResolution), m_name(info.printerName())
    {
        m_printer.setDocName(settings.title);
        m_printer.setFullPage(true);
        m_printer.setPageSize(QPageSize(QSizeF(settings.paper.width, settings.paper.height) / twipsPerPoint, QPageSize::Point));
        m_printer.setPageOrientation(orientationOf(settings.orientation));
        m_printer.setCopyCount(settings.copies);
        if (!m_painter.begin(&m_printer))
            throw unreachable(m_name);
    }
    ~RealJob() override
    {
        if (m_painter.isActive())
            m_printer.abort();
    }

    QPainter *painter() override { return &m_painter; }
    double pixelsPerTwip() const override { return m_printer.resolution() / twipsPerInch; }
    void newPage(int orientation) override
    {
        m_printer.setPageOrientation(orientationOf(orientation));
        if (!m_printer.newPage())
            throw unreachable(m_name);
    }
    void end() override
    {
        if (!m_painter.end() || m_printer.printerState() == QPrinter::Error)
            throw unreachable(m_name);
    }

private:
    QPrinter m_printer;
    QPainter m_painter;
    QString m_name;
};

class RealHardware : public Hardware {
public:
    explicit RealHardware(const QString &name) : m_name(name) {}
    QString name() const override { return m_name; }
    Paper paper() const override
    {
        const QPrinterInfo info = QPrinterInfo::printerInfo(m_name);
        const QSizeF points = info.defaultPageSize().size(QPageSize::Point);
        if (info.isNull() || points.isEmpty())
            return localePaper();
        QPageLayout layout = QPrinter(info).pageLayout();
        layout.setUnits(QPageLayout::Point);
        const QMarginsF border = layout.minimumMargins();
        return withBorder({points.width() * twipsPerPoint, points.height() * twipsPerPoint, border.left() * twipsPerPoint,
                           border.top() * twipsPerPoint, border.right() * twipsPerPoint, border.bottom() * twipsPerPoint});
    }
    // The printer is looked up again: it may have been removed since the pages were composed.
    std::unique_ptr<Job> start(const JobSettings &settings) override
    {
        const QPrinterInfo info = QPrinterInfo::printerInfo(m_name);
        if (info.isNull())
            throw unreachable(m_name);
        return std::make_unique<RealJob>(info, settings);
    }

private:
    QString m_name;
};

}

std::shared_ptr<Hardware> desktopPrinter(const QString &name)
{
    QString wanted = name.isEmpty() ? QPrinterInfo::defaultPrinterName() : name;
    if (wanted.isEmpty())
        wanted = desktopPrinterNames().value(0);
    return QPrinterInfo::printerInfo(wanted).isNull() ? nullptr : std::make_shared<RealHardware>(wanted);
}

QStringList desktopPrinterNames()
{
    return QPrinterInfo::availablePrinterNames();
}

}
