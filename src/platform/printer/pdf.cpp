#include "platform/basic/error.h"
#include "platform/printer/printer.h"

#include <QCoreApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace vorel::printer {

using namespace Qt::StringLiterals;

namespace {

constexpr int fileError = 75;

class PdfJob : public Job {
public:
    PdfJob(const QString &path, const JobSettings &settings) : m_file(path), m_writer(&m_file)
    {
        if (!m_file.open(QIODevice::WriteOnly))
            throw unwritable();
        m_writer.setTitle(settings.title);
        m_writer.setCreator(QCoreApplication::applicationName());
        m_writer.setResolution(static_cast<int>(twipsPerInch));
        m_writer.setPageSize(QPageSize(QSizeF(settings.paper.width, settings.paper.height) / twipsPerPoint, QPageSize::Point));
        m_writer.setPageMargins({});
        orient(settings.orientation);
        if (!m_painter.begin(&m_writer))
            throw unwritable();
    }
    ~PdfJob() override
    {
        if (m_painter.isActive())
            m_painter.end();    // before the writer and the file go
        m_file.cancelWriting();
    }

    QPainter *painter() override { return &m_painter; }
    double pixelsPerTwip() const override { return 1; }
    void newPage(int orientation) override
    {
        orient(orientation);
        m_writer.newPage();
    }
    void end() override
    {
        m_painter.end();
        if (!m_file.commit())
            throw unwritable();
    }

private:
    void orient(int orientation)
    {
        m_writer.setPageOrientation(orientation == Landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    }
    basic::Error unwritable() const
    {
        return {fileError, u"The file %1 cannot be written: %2."_s.arg(m_file.fileName(), m_file.errorString())};
    }

    QSaveFile m_file;
    QPdfWriter m_writer;
    QPainter m_painter;
};

}

std::unique_ptr<Job> startPdf(const QString &path, const JobSettings &settings)
{
    return std::make_unique<PdfJob>(path, settings);
}

}
