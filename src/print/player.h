#pragma once

#include "platform/printer/page.h"

#include <QString>
#include <functional>
#include <memory>
#include <vector>

// The player: reads a print script and draws it on the printer or on the preview's page. "EMAIL" reads it alone.
namespace vorel {

struct PlayerState {
    int FirstPrintPage = 1;
    int LastPrintPage = 0;              // 0: to the end
    int TotalPages = 0;
    int CurrentPage = 0;                // on the screen, from 0
    double PreviewScale = 1;            // width of the page on the screen to that of the printer
    double PageOffsetX = 0, PageOffsetY = 0;
    bool HScrollShown = false, VScrollShown = false;
};
PlayerState &playerState();

// What the player needs of frmPreview. Twips.
class PreviewScreen {
public:
    virtual ~PreviewScreen() = default;
    virtual printer::Page &Page() = 0;
    virtual double ScreenWidth() const = 0;             // of the room for the whole preview
    virtual double ScreenHeight() const = 0;
    virtual double ControlHeight() const = 0;           // of the tool strip
    virtual void PageSized() = 0;                       // Page has got its paper anew
    virtual void ClearPage() = 0;
    virtual void setPageLabel(const QString &text) = 0;
    virtual void ShowPage() = 0;                        // the page is drawn: scroll bars, and on the screen with it
    virtual void ShowModal() = 0;
    double Zoom = 1;                                    // the user's own, on top of the described size
};
// How a preview comes into being; empty: scripts for "SCREEN" are played without one.
void setPreviewMaker(std::function<std::unique_ptr<PreviewScreen>()> maker);
PreviewScreen *preview();               // the one that is open, or nullptr

// True if pages can be composed, which they can without a printer too. A printer without a page is told in a message.
bool PrinterReady();
void RunPrintScript(const QString &name, const std::vector<QString> &table, const QString &target);
// Failures: 9 for a [n] outside the table, 53 and 481 for a picture, 482 for the printer, 75 for a file.
void PlayScript(const QString &target);
void InitPage();
// 0 first, 1 previous, 2 next, 3 last, 4 the page whose number txtPage holds.
void MovePage(int index, const QString &txtPage = {});
// The end of the preview, which calls it as it goes: the script is closed, and deleted where it is a ".TMP".
void ClosePreview();
// The page of the preview once more at another size.
void zoomPreview(double zoom);

// The pointer is an hourglass while one lives; the preview takes it away.
void showHourglass(bool on);
class Hourglass {
public:
    Hourglass() { showHourglass(true); }
    ~Hourglass() { showHourglass(false); }
    Hourglass(const Hourglass &) = delete;
    Hourglass &operator=(const Hourglass &) = delete;
};

}
