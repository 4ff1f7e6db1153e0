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

// Which printer there is and what paper it holds is asked once: the answer may take the print system a while.
struct Machine {
    HardwareFinder find;
    std::function<QStringList()> names;
    std::shared_ptr<Hardware> chosen;
    Paper paper;
};

Machine &machine()
{
    static Machine instance;
    return instance;
}

std::shared_ptr<Hardware> findHardware(const QString &name)
{
    std::shared_ptr<Hardware> found;
    if (machine().find)
        found = machine().find(name);
    return found;
}

void take(std::shared_ptr<Hardware> hardware)
{
    machine().paper = hardware->paper();
    machine().chosen = std::move(hardware);
}

const Machine &machineWithPrinter()
{
    if (!machine().chosen) {
        std::shared_ptr<Hardware> found = findHardware({});
        take(found ? std::move(found) : std::make_shared<NoHardware>());
    }
    return machine();
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

Printer::Printer() : Page(machineWithPrinter().paper), m_hardware(machine().chosen) {}

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

void Printer::choose(std::shared_ptr<Hardware> hardware)
{
    m_hardware = std::move(hardware);
}

QPainter *Printer::surface()
{
    if (!m_job) {
        const JobSettings settings{documentTitle, paper(), Orientation(), std::max(1, Copies)};
        m_job = m_starter ? m_starter(settings) : m_hardware->start(settings);
        if (!m_job)
            throw basic::BasicError(printerError);
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

void setHardware(HardwareFinder finder, std::function<QStringList()> names)
{
    machine() = {std::move(finder), std::move(names), nullptr, {}};
}

QStringList printerNames()
{
    QStringList names;
    if (machine().names)
        names = machine().names();
    return names;
}

bool choosePrinter(Printer &pages, const QString &name)
{
    if (pages.DeviceName() == name)
        return true;
    std::shared_ptr<Hardware> found = findHardware(name);
    if (!found)
        return false;
    take(found);
    pages.choose(std::move(found));
    return true;
}

}
