#pragma once

#include "platform/basic/value.h"
#include "platform/printer/printer.h"

#include <QFile>
#include <memory>
#include <vector>

namespace vorel {

class PrintPlayer;

// One report on its way to the screen or the printer. A report writer creates one and calls the recording operations: each
// drawing becomes a line of the print script (PRINT.TMP in the program folder), and PrintEndDoc plays the script. All
// measuring is done against the job's own page of the printer, so jobs that exist at the same time do not touch each other.
// Lengths are in units of the current scale.
class PrintJob {
public:
    PrintJob();                                     // on the paper of the printer that is chosen now
    ~PrintJob();                                    // removes the script of a report that was never played
    PrintJob(const PrintJob &) = delete;
    PrintJob &operator=(const PrintJob &) = delete;

    QString PreviewCaption;                         // also the title of the document that is printed or saved
    QString MailRecipient;                          // "": the preview offers no mail
    bool fitsPreview = false;                       // it opens with the whole page in view, for sheets unlike a page of paper
    bool hideEmail = false;                         // nor does it with this set, whoever the recipient is
    QString EmailFileName;                          // "": no HTML side file
    std::vector<QString> ScriptStrings{QString()};  // the texts that [n] names
    // Of the latest picture. The size in the script's PAINTPICTURE lines is not read back: the replay takes this one for
    // every picture.
    double PictureWidth = 0, PictureHeight = 0;

    printer::Printer &device() { return m_device; }
    PrintPlayer &player() { return *m_player; }
    bool isRecording() const { return m_script.isOpen(); }

    // Called by the recording operations when no script is open. Error 75 when the file cannot be created.
    void OpenPrintScript();
    void SetPrintTarget(const QString &target) { m_target = target; }     // "PRINTER", "SCREEN" or "EMAIL"
    QString GetPrintTarget() const;                 // "PRINTER" if none was set
    void SetPreviewCaption(const QString &caption) { PreviewCaption = caption; }

    void SetFontName(const QString &name);
    double SetFontSize(const basic::Value &size);   // one that scans as 0: the printer's current size; returns what was set
    void SetFontBold(bool on);
    void SetForeColor(quint32 colour);              // 0xBBGGRR
    quint32 GetForeColor() const { return m_device.ForeColor(); }
    void SetOrientation(int orientation);           // 1 portrait, 2 landscape
    int GetOrientation() const { return m_device.Orientation(); }
    void SetScaleMode(int mode);                    // 1 to 7
    int GetScaleMode() const { return m_device.ScaleMode(); }
    void SetScaleWidth(double width);               // for measuring alone: the player ignores it
    double GetScaleWidth() const { return m_device.ScaleWidth(); }
    double GetScaleHeight() const { return m_device.ScaleHeight(); }
    double GetCurrentX() const { return m_device.CurrentX(); }
    double GetCurrentY() const { return m_device.CurrentY(); }
    void SetCurrentX(double x) { m_device.setCurrentX(x); }
    void SetCurrentY(double y) { m_device.setCurrentY(y); }
    double GetTextWidth(const QString &text) const { return m_device.TextWidth(text); }
    double GetTextHeight(const QString &text) const { return m_device.TextHeight(text); }
    int GetPageNumber() const { return m_recordedPage; }

    void PrintLeft(const basic::Value &text = {});  // CR LF in the text starts a new line at x 0
    void PrintRight(const basic::Value &text = {});
    void PrintCentre(const basic::Value &text);     // the first line only
    // step: "" or "STEP"; colour: "" or a number, for the flag "BF" of the sixteen colours; flag: "", "B" or "BF".
    void PrintLine(double x1, double y1, const QString &step, double x2, double y2, const basic::Value &colour = {},
                   const QString &flag = {});
    void PrintPicture(const QString &path, double x, double y, const basic::Value &width = {},
                      const basic::Value &height = {}, const std::vector<basic::Value> &further = {});
    void PrintNewPage();
    // Closes the script and plays it; with the target "SCREEN" it returns when the preview is closed.
    void PrintEndDoc();

    // alignment: "L", "C", "R"; others print nothing.
    void PrintField(double x, const QString &alignment, const basic::Value &text, bool newLine);
    void PrintDateField(double x, const QString &alignment, const basic::Value &date, bool newLine);
    void PrintCurrencyField(double x, const QString &alignment, const basic::Value &number, bool newLine);
    void PrintDollarField(double x, const QString &alignment, const basic::Value &number, bool newLine);
    // Lines of at most width characters, broken at blanks; a rest without a blank stays one line. Blank lines are skipped.
    void PrintWrapped(const QString &alignment, double x, int width, const basic::Value &text);

private:
    struct EndOfReport;
    void write(const QString &line);                // to the open script
    void record(const QString &line);               // opens the script if need be
    void turnPage();                                // the NEWPAGE line, and the count of pages
    void writeHeader();
    void closeScript();
    void openHtml();
    void closeHtml();
    void printPieces(QStringView command, const basic::Value &value);
    void writeText(QStringView command, const QString &piece);
    void stepDown();
    void breakFullPage();

    printer::Printer m_device;
    std::unique_ptr<PrintPlayer> m_player;
    QString m_target;
    QFile m_script, m_html;
    bool m_isPlayed = false;                        // the script belongs to the player, which knows when it goes
    int m_recordedPage = 0;
};

// Removes the scripts that a program which was killed left in the program folder: they hold what was printed, passwords
// and journal included, in plain text. For the start and the end of the program, when no job exists.
void removePrintScripts();

QStringList wrapLines(const QString &text, int width);      // how PrintWrapped breaks a text
bool IsOddNumber(int number);

// A length or number as the script writes it: single precision, "." whatever the regional settings.
QString scriptNumber(double number);
// The number at the head of a text, 0 if there is none or it is broken.
double scanNumber(QStringView text);
double numberOf(const basic::Value &value);     // of a number itself, of a text by the scan

}
