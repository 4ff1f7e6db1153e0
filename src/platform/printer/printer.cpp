#include "platform/printer/printer.h"

#include "platform/basic/error.h"
#include "platform/basic/locale.h"

#include <algorithm>

namespace vorel::printer {

using namespace Qt::StringLiterals;

namespace {

constexpr double usualBorder = 360;         // twips, a quarter of an inch
constexpr int printerError = 482;

class NoHardware : public Hardware {
public:
    QString name() const override { return {}; }
    Paper paper() const override { return localePaper(); }
    std::unique_ptr<Job> start(const JobSettings &) override
    {
        throw basic::Error(printerError, u"There is no printer on this machine. The pages can be saved as PDF."_s);
    }
};

std::function<std::shared_ptr<Hardware>()> &hardwareMaker()
{
    static std::function<std::shared_ptr<Hardware>()> maker;
    return maker;
}

std::unique_ptr<Printer> &storedPrinter()
{
    static std::unique_ptr<Printer> printer;
    return printer;
}

}

Paper localePaper()
{
    return basic::regional().metricPaper ? withBorder({11906, 16838}) : withBorder({12240, 15840});
}

Paper withBorder(Paper paper)
{
    if (paper.width <= 0 || paper.height <= 0)
        return {};
    for (double *border : {&paper.left, &paper.top, &paper.right, &paper.bottom})
        *border = std::clamp(*border, usualBorder, std::min(paper.width, paper.height) / 4);
    return paper;
}

Printer::Printer(std::shared_ptr<Hardware> hardware)
    : Page(hardware ? hardware->paper() : localePaper()),
      m_hardware(hardware ? std::move(hardware) : std::make_shared<NoHardware>()) {}

Printer::~Printer() = default;

bool Printer::hasHardware() const
{
    return !m_hardware->name().isEmpty();
}

QString Printer::DeviceName() const
{
    return m_hardware->name();
}

QPainter *Printer::surface()
{
    if (!m_job) {
        const JobSettings settings{documentTitle, paper(), Orientation(), std::max(1, Copies)};
        m_job = m_starter ? m_starter(settings) : m_hardware->start(settings);
        drawOn(m_job->painter(), m_job->pixelsPerTwip());
    }
    if (m_pageEnded)
        feed();
    return m_job->painter();
}

void Printer::feed()
{
    m_pageEnded = false;
    m_job->newPage(Orientation());
    drawOn(m_job->painter(), m_job->pixelsPerTwip());
}

void Printer::NewPage()
{
    surface();
    m_pageEnded = true;
    setCurrentX(0);
    setCurrentY(0);
}

void Printer::EndDoc()
{
    setCurrentX(0);
    setCurrentY(0);
    m_pageEnded = false;
    drawOn(nullptr, 1);
    if (const std::unique_ptr<Job> job = std::exchange(m_job, nullptr))
        job->end();
}

void Printer::KillDoc()
{
    m_pageEnded = false;
    drawOn(nullptr, 1);
    m_job.reset();
}

Printer::Redirection::Redirection(Printer &printer, JobStarter starter) : m_printer(printer)
{
    m_printer.m_starter = std::move(starter);
}

Printer::Redirection::~Redirection()
{
    m_printer.m_starter = {};
}

Printer &thePrinter()
{
    std::unique_ptr<Printer> &printer = storedPrinter();
    if (!printer) {
        std::shared_ptr<Hardware> hardware;
        if (hardwareMaker())
            basic::IgnoreErrors([&] { hardware = hardwareMaker()(); });
        printer = std::make_unique<Printer>(std::move(hardware));
    }
    return *printer;
}

void setHardware(std::function<std::shared_ptr<Hardware>()> hardware)
{
    hardwareMaker() = std::move(hardware);
    storedPrinter().reset();
}

}
