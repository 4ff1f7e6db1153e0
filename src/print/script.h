#pragma once

#include "platform/basic/value.h"
#include "platform/printer/page.h"

#include <QFile>
#include <vector>

// The recorder: a report writer calls these, each drawing becomes a line of the print script (PRINT.TMP in the program
// folder), and PrintEndDoc plays it. Lengths are in units of the current scale. One report at a time.
namespace vorel {

struct ScriptState {
    std::int16_t ScriptFile = 0;            // 0: no script is open
    QString ScriptName = QStringLiteral("PRINT.TMP");
    int RecordedPage = 0;
    QString PrintTarget;                    // "PRINTER", "SCREEN" or ""
    float PictureWidth = 0, PictureHeight = 0;      // of the latest picture; the replay takes them for every picture
    QString EmailFileName;                  // "": no HTML side file
    std::int16_t HtmlFile = 0;
    std::vector<QString> ScriptStrings{QString()};  // the texts that [n] names
    QString PreviewCaption;
    QString MailRecipient;                  // "": the preview offers no mail
    bool hideEmail = false;                 // the next preview shows no cmdEmail
};
ScriptState &scriptState();

// Error 75 when the file cannot be made; no script is open then.
void OpenPrintScript();
void abandonScript();                       // what a failed report left open or chose is let go
void SetPrintTarget(const QString &target);
QString GetPrintTarget();                   // "PRINTER" if none was set
void SetPreviewCaption(const QString &caption);

void SetFontName(const QString &name);
void SetFontSize(basic::Value &size);       // a size that scans as 0 becomes the printer's current one, also in the argument
void SetFontSize(double size);
void SetFontBold(bool on);
void SetForeColor(quint32 colour);          // 0xBBGGRR
quint32 GetForeColor();
void SetOrientation(int orientation);       // 1 portrait, 2 landscape
int GetOrientation();
void SetScaleMode(int mode);                // 1 to 7
int GetScaleMode();
void SetScaleWidth(double width);           // the page is that wide, for measuring; the player takes no notice
double GetScaleWidth();
double GetScaleHeight();
double GetCurrentX();
double GetCurrentY();
void SetCurrentX(double x);
void SetCurrentY(double y);
double GetTextWidth(const QString &text);
double GetTextHeight(const QString &text);
int GetPageNumber();

void PrintLeft(const basic::Value &text = {});      // CR LF in the text starts a new line at x 0
void PrintRight(const basic::Value &text = {});
void PrintCentre(const basic::Value &text);         // the first line only
// step: "" or "STEP"; colour: "" or a number, for the flag "BF" of the sixteen colours; flag: "", "B" or "BF".
void PrintLine(double x1, double y1, const QString &step, double x2, double y2, const basic::Value &colour = {},
               const QString &flag = {});
void PrintPicture(const QString &path, float &x, float &y, const basic::Value &width = {}, const basic::Value &height = {},
                  const std::vector<basic::Value> &further = {});
void PrintNewPage();
// Closes the script and plays it; with the target "SCREEN" it returns when the preview is closed.
void PrintEndDoc();

// alignment: "L", "C", "R"; others print nothing.
void PrintField(double x, const QString &alignment, const basic::Value &text, bool newLine);
void PrintDateField(double x, const QString &alignment, const basic::Value &date, bool newLine);
void PrintCurrencyField(double x, const QString &alignment, const basic::Value &number, bool newLine);
void PrintDollarField(double x, const QString &alignment, const basic::Value &number, bool newLine);
// Lines of at most width characters, broken at blanks; a rest without a blank stays one line. Blank lines take no room.
void PrintWrapped(const QString &alignment, double x, int width, const basic::Value &text);
QStringList wrapLines(const QString &text, int width);
bool IsOddNumber(int number);

// A length or number as the script writes it: single precision, "." whatever the regional settings.
QString scriptNumber(double number);
// The number at the head of a text, 0 if there is none or it is broken.
double scanNumber(QStringView text);
double numberOf(const basic::Value &value);     // of a number itself, of a text by the scan

}
