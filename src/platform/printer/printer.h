#pragma once

#include "platform/printer/page.h"

#include <functional>

// The printer: a page that measures at any time and opens a job with its first drawing.
namespace vorel::printer {

// What a job is started with.
struct JobSettings {
    QString title;
    Paper paper;
    int orientation = Portrait;
    int copies = 1;
};

// One document on its way to a printer or a file. Failures are basic::Error (482, 75) with a text for the user.
class Job {
public:
    virtual ~Job() = default;               // a job that was not ended leaves nothing behind
    virtual QPainter *painter() = 0;
    virtual double pixelsPerTwip() const = 0;
    virtual void newPage(int orientation) = 0;
    virtual void end() = 0;
};
using JobStarter = std::function<std::unique_ptr<Job>(const JobSettings &)>;

// One of the machine's printers.
class Hardware {
public:
    virtual ~Hardware() = default;
    virtual QString name() const = 0;       // "": no printer exists; pages can still be shown and saved
    virtual Paper paper() const = 0;
    virtual std::unique_ptr<Job> start(const JobSettings &settings) = 0;    // 482 when the printer cannot be reached
};

// The paper that the regional settings use (A4 or Letter), with the border that most printers need.
Paper localePaper();
// Whatever a printer reports: at least the usual border, and nothing for a sheet without a size.
Paper withBorder(Paper paper);
// A document in one file, complete or not there at all: 75 when it cannot be written.
std::unique_ptr<Job> startPdf(const QString &path, const JobSettings &settings);

class Printer : public Page {
public:
    Printer();                              // the one that is chosen now; its pages keep the paper that it has now
    explicit Printer(std::shared_ptr<Hardware> hardware);       // nullptr: none, on the locale's paper
    ~Printer() override;

    bool hasHardware() const;               // there is a printer to send a job to
    QString DeviceName() const;
    // This printer's jobs go elsewhere from here on, on the same paper: the pages have been measured for it.
    void choose(std::shared_ptr<Hardware> hardware);
    void NewPage();                         // the sheet is fed when something is drawn on the next one, or left out at the end
    void EndDoc();
    void KillDoc();                         // the job is dropped
    bool isPrinting() const { return m_job != nullptr; }
    QString documentTitle;
    int Copies = 1;

    // Jobs go where the starter says while one of these lives: a file instead of the printer.
    class Redirection {
    public:
        Redirection(Printer &printer, JobStarter starter);
        ~Redirection();
        Redirection(const Redirection &) = delete;
        Redirection &operator=(const Redirection &) = delete;
    private:
        Printer &m_printer;
    };

protected:
    QPainter *surface() override;

private:
    void feed();

    std::shared_ptr<Hardware> m_hardware;
    JobStarter m_starter;
    std::unique_ptr<Job> m_job;
    bool m_pageEnded = false;
};

// What finds a printer by its name, or the default one for ""; asked at the first use. Empty: a machine without a printer.
using HardwareFinder = std::function<std::shared_ptr<Hardware>(const QString &name)>;
// The printers of the machine; names: of all. The default one is chosen.
void setHardware(HardwareFinder finder, std::function<QStringList()> names = {});
QStringList printerNames();
// Chooses a printer for the pages at hand and for those to come. false: it is not there, and the one before stays.
bool choosePrinter(Printer &pages, const QString &name);

}
