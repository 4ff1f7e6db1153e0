#include "fuzzing.h"

#include "platform/printer/printer.h"
#include "print/player.h"
#include "print/script.h"
#include "print/scriptfile.h"

#include <QPainter>

// Any bytes as a print script: played on a small screen, moved about in, printed on a picture, read for a letter.
using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

class ImageJob : public printer::Job {
public:
    ImageJob() : m_sheet(200, 260, QImage::Format_RGB32) { m_painter.begin(&m_sheet); }
    ~ImageJob() override { m_painter.end(); }
    QPainter *painter() override { return &m_painter; }
    double pixelsPerTwip() const override { return 200.0 / 12240; }
    void newPage(int) override { m_sheet.fill(Qt::white); }
    void end() override {}
private:
    QImage m_sheet;
    QPainter m_painter;
};

class ImagePrinter : public printer::Hardware {
public:
    QString name() const override { return u"Picture"_s; }
    printer::Paper paper() const override { return printer::withBorder({12240, 15840}); }
    std::unique_ptr<printer::Job> start(const printer::JobSettings &) override { return std::make_unique<ImageJob>(); }
};

class SmallPreview : public PreviewScreen {
public:
    explicit SmallPreview(PrintJob &job) : m_player(job.player()), m_page(printer::Paper{}) {}
    ~SmallPreview() override { m_painter.end(); }
    printer::Page &Page() override { return m_page; }
    double ScreenWidth() const override { return 3000; }
    double ScreenHeight() const override { return 2500; }
    double ControlHeight() const override { return 300; }
    void PageSized() override
    {
        m_painter.end();
        m_image = QImage(QSizeF(m_page.Width() / 15, m_page.Height() / 15).toSize().expandedTo({1, 1}), QImage::Format_RGB32);
        m_painter.begin(&m_image);
        m_page.drawOn(&m_painter, 1 / printer::twipsPerPixel);
    }
    void ClearPage() override { m_image.fill(Qt::white); }
    void setPageLabel(const QString &) override {}
    void ShowPage() override {}
    void ShowModal() override
    {
        for (const int move : {3, 1, 2, 0})
            fuzz::guarded([&] { m_player.MovePage(move); });
        fuzz::guarded([&] { m_player.MovePage(4, u"2"_s); });
        fuzz::guarded([&] { m_player.zoomPreview(0.5); });
    }
private:
    PrintPlayer &m_player;
    QImage m_image;
    QPainter m_painter;
    printer::Page m_page;
};

// The pages hold the lines of the file, each once and in order.
void checkIndex(const QString &path)
{
    PrintScriptFile script;
    fuzz::require(script.open(path), u"the script does not open"_s);
    QStringList whole, paged;
    script.seekPage(0);
    while (const auto line = script.nextLine())
        whole << *line;
    for (int page = 0; page < script.pages(); ++page) {
        script.seekPage(page);
        while (const auto line = script.nextLine()) {
            paged << *line;
            if (FirstWord(*line) == u"NEWPAGE")
                break;
        }
    }
    fuzz::require(paged == whole, u"%1 pages, %2 lines of %3"_s.arg(script.pages()).arg(paged.size()).arg(whole.size()));
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const bool ready = [] {
        printer::setHardware([](const QString &) { return std::make_shared<ImagePrinter>(); });
        setPreviewMaker([](PrintJob &job) { return std::make_unique<SmallPreview>(job); });
        return true;
    }();
    Q_UNUSED(ready);
    const fuzz::Input input(data, size, 0);
    const QString name = u"SCRIPT.TXT"_s;
    fuzz::write(name, input.bytes);
    checkIndex(fuzz::path(name));
    const std::vector<QString> table{u""_s, u"one"_s, u"two\nlines"_s};
    for (const auto &target : {u"SCREEN"_s, u"PRINTER"_s, u"EMAIL"_s})
        fuzz::guarded([&] {
            PrintJob job;
            job.PictureWidth = input.choice * 20;
            job.player().RunPrintScript(fuzz::path(name), table, target);
        });
    return 0;
}
