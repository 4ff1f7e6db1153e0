#include "print/printfixture.h"

#include "platform/basic/error.h"
#include "print/output.h"

#include <QProcess>
#include <QRegularExpression>

namespace vorel::test {

namespace {

class FakeJob : public printer::Job {
public:
    FakeJob(const printer::JobSettings &settings, std::shared_ptr<FakeJobs::Document> document)
        : m_settings(settings), m_document(std::move(document))
    {
        m_document->copies = settings.copies;
        addSheet(settings.orientation);
    }
    ~FakeJob() override
    {
        if (m_painter.isActive())
            m_painter.end();
    }
    QPainter *painter() override { return &m_painter; }
    double pixelsPerTwip() const override { return 1 / printer::twipsPerPixel; }
    void newPage(int orientation) override
    {
        finishSheet();
        addSheet(orientation);
    }
    void end() override
    {
        finishSheet();
        m_document->ended = true;
    }

private:
    void addSheet(int orientation)
    {
        QSize size = QSizeF(m_settings.paper.width / 15, m_settings.paper.height / 15).toSize();
        if (orientation == printer::Landscape)
            size.transpose();
        m_sheet = QImage(size, QImage::Format_RGB32);
        m_sheet.fill(Qt::white);
        m_painter.begin(&m_sheet);
    }
    void finishSheet()
    {
        m_painter.end();
        m_document->sheets.push_back(m_sheet);
    }

    printer::JobSettings m_settings;
    std::shared_ptr<FakeJobs::Document> m_document;
    QImage m_sheet;
    QPainter m_painter;
};

class FakeHardware : public printer::Hardware {
public:
    FakeHardware(FakeJobs &jobs, const QString &name) : m_jobs(jobs), m_name(name) {}
    QString name() const override { return m_name; }
    printer::Paper paper() const override
    {
        return m_name == u"Other printer" ? printer::withBorder({10000, 12000}) : printer::withBorder({12240, 15840});
    }
    std::unique_ptr<printer::Job> start(const printer::JobSettings &settings) override
    {
        if (m_jobs.isGone)
            throw basic::Error(482, u"The printer cannot be reached."_s);
        m_jobs.documents.push_back(std::make_shared<FakeJobs::Document>());
        m_jobs.documents.back()->printer = m_name;
        return std::make_unique<FakeJob>(settings, m_jobs.documents.back());
    }

private:
    FakeJobs &m_jobs;
    QString m_name;
};

}

std::function<void(FakePreview &)> FakePreview::whileOpen;
int FakePreview::opened = 0;

QList<int> FakeJobs::sheetCounts() const
{
    QList<int> counts;
    for (const auto &document : documents) {
        if (document->ended)
            counts << static_cast<int>(document->sheets.size());
    }
    return counts;
}

FakePreview::FakePreview(PrintJob &printed) : job(printed), player(printed.player()), m_page({}) {}

FakePreview::~FakePreview()
{
    m_painter.end();
}

void FakePreview::PageSized()
{
    if (m_painter.isActive())
        m_painter.end();
    image = QImage(QSizeF(m_page.Width() / 15, m_page.Height() / 15).toSize(), QImage::Format_RGB32);
    m_painter.begin(&image);
    m_page.drawOn(&m_painter, 1 / printer::twipsPerPixel);
    ClearPage();
}

void FakePreview::ClearPage()
{
    image.fill(Qt::white);
}

void FakePreview::ShowModal()
{
    ++opened;
    const auto work = whileOpen;        // which may set another, for a preview within this one
    if (work)
        work(*this);
}

bool hasInk(const QImage &image, double scale, const QRectF &twips)
{
    const auto place = [&](double from) { return static_cast<int>((from + 360) * scale); };
    for (int y = place(twips.top()); y < place(twips.bottom()); ++y) {
        for (int x = place(twips.left()); x < place(twips.right()); ++x) {
            if (image.valid(x, y) && qGray(image.pixel(x, y)) < 128)
                return true;
        }
    }
    return false;
}

PrintTest::PrintTest()
{
    state().gProductTitle = u"Vorel Reminder"_s;
    DetectDateOrder();
    const auto find = [this](const QString &name) -> std::shared_ptr<printer::Hardware> {
        if (name.startsWith(u"Gone"))
            return nullptr;
        return std::make_shared<FakeHardware>(m_jobs, name.isEmpty() ? u"Test printer"_s : name);
    };
    printer::setHardware(find, [] { return QStringList{u"Test printer"_s, u"Other printer"_s, u"Gone printer"_s}; });
    setPreviewMaker([](PrintJob &job) { return std::make_unique<FakePreview>(job); });
}

PrintTest::~PrintTest()
{
    setPreviewMaker({});
    FakePreview::whileOpen = {};
    printer::setHardware({});
}

int PrintTest::previewed(const std::function<void()> &report, const std::function<void(FakePreview &)> &work)
{
    const int before = FakePreview::opened;
    FakePreview::whileOpen = work;
    report();
    FakePreview::whileOpen = {};
    return FakePreview::opened - before;
}

QStringList PrintTest::script(const std::function<void()> &report)
{
    QStringList lines;
    const int previews = previewed(report, [&](FakePreview &) {
        lines = QString::fromUtf8(m_folder.read(u"PRINT.TMP"_s)).split(u"\r\n"_s, Qt::SkipEmptyParts);
    });
    EXPECT_EQ(previews, 1) << "no preview";
    EXPECT_GE(lines.size(), 5) << "no header";
    return lines.mid(4);
}

QStringList PrintTest::pages(const std::function<void()> &report)
{
    const QString path = m_folder.path(u"read.pdf"_s);
    QFile::remove(path);
    EXPECT_EQ(previewed(report, [&](FakePreview &screen) { savePdf(screen.job, path); }), 1) << "no preview";
    return readPdf(path);
}

QStringList readPdf(const QString &path)
{
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s});
    EXPECT_TRUE(reader.waitForFinished() && reader.exitCode() == 0) << "pdftotext";
    QStringList texts = QString::fromUtf8(reader.readAllStandardOutput()).split(u'\f');
    texts.removeLast();
    static const QRegularExpression blanks(u"[ \\t]+"_s);
    for (QString &text : texts)
        text.replace(blanks, u" "_s);
    return texts;
}

std::vector<Word> wordsOf(const QString &pdf)
{
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-bbox"_s, pdf, u"-"_s});
    EXPECT_TRUE(reader.waitForFinished() && reader.exitCode() == 0) << "pdftotext";
    static const QRegularExpression mark(
        u"<page |<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">([^<]*)"_s);
    std::vector<Word> words;
    int page = 0;
    auto found = mark.globalMatch(QString::fromUtf8(reader.readAllStandardOutput()));
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        if (match.capturedLength(5) == 0) {
            ++page;
            continue;
        }
        const auto twips = [&](int part) { return match.captured(part).toDouble() * printer::twipsPerPoint; };
        words.push_back({page, match.captured(5), QRectF(QPointF(twips(1), twips(2)), QPointF(twips(3), twips(4)))});
    }
    return words;
}

}
