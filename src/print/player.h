#pragma once

#include "platform/printer/page.h"
#include "print/scriptfile.h"

#include <QString>
#include <functional>
#include <memory>
#include <vector>

namespace vorel {

class PrintJob;

// What the player needs of frmPreview. Twips.
class PreviewScreen {
public:
    virtual ~PreviewScreen() = default;
    virtual printer::Page &Page() = 0;
    virtual double ScreenWidth() const = 0;             // of the space for the whole preview
    virtual double ScreenHeight() const = 0;
    virtual double ControlHeight() const = 0;           // of the tool strip
    virtual void PageSized() = 0;                       // Page has its paper set again
    virtual void ClearPage() = 0;
    virtual void setPageLabel(const QString &text) = 0;
    virtual void ShowPage() = 0;                        // the page is drawn: scroll bars, and on the screen with it
    virtual void ShowModal() = 0;
    double Zoom = 1;                                    // the user's own, on top of the size that the player gives a page
};
// Creates the preview of a job; empty: scripts for "SCREEN" are played without one.
void setPreviewMaker(std::function<std::unique_ptr<PreviewScreen>(PrintJob &job)> maker);

// Reads a job's script and draws it on the printer or on the preview's page. "EMAIL" draws nothing: the pass leaves the
// fonts as the script sets them.
class PrintPlayer {
public:
    explicit PrintPlayer(PrintJob &job) : m_job(job) {}
    PrintPlayer(const PrintPlayer &) = delete;
    PrintPlayer &operator=(const PrintPlayer &) = delete;

    int FirstPrintPage = 1;
    int LastPrintPage = 0;              // 0: to the end
    int TotalPages = 0;
    int CurrentPage = 0;                // on the screen, from 0
    double PreviewScale = 1;            // width of the page on the screen to that of the printer
    double PageOffsetX = 0, PageOffsetY = 0;
    bool HScrollShown = false, VScrollShown = false;

    // A script that cannot be opened ends without a message; with the target "SCREEN" it returns when the preview is closed.
    void RunPrintScript(const QString &name, const std::vector<QString> &table, const QString &target);
    // Failures: 9 for a [n] outside the table, 53 and 481 for a picture, 482 for the printer, 75 for a file.
    void PlayScript(const QString &target);
    void InitPage();
    // 0 first, 1 previous, 2 next, 3 last, 4 the page whose number txtPage holds.
    void MovePage(int index, const QString &txtPage = {});
    // The preview calls it as it closes: the script is closed, and deleted where it is a ".TMP".
    void ClosePreview();
    void zoomPreview(double zoom);      // draws the page once more at another size

    PreviewScreen *preview() { return m_preview.get(); }        // nullptr: none is open
    void sizePreviewPage();
    void recomputeOffsets(int scaleMode);

private:
    void positionOnScreen();
    void positionForPrinter();

    PrintJob &m_job;
    PrintScriptFile m_script;
    std::vector<QString> m_table;
    std::unique_ptr<PreviewScreen> m_preview;
};

// True if pages can be composed, which works without a printer too. A printer without a page is reported in a message.
bool PrinterReady();

// The pointer is an hourglass while one of these lives; the preview takes it away.
void showHourglass(bool on);
class Hourglass {
public:
    Hourglass() { showHourglass(true); }
    ~Hourglass() { showHourglass(false); }
    Hourglass(const Hourglass &) = delete;
    Hourglass &operator=(const Hourglass &) = delete;
};

}
