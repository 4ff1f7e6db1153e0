#pragma once

#include "platform/controls/form.h"
#include "platform/controls/richtextbox.h"
#include "utilities/infopages.h"

// The text screen: a section's page of help, or a note, to be read.
namespace vorel {

class frmInformation : public controls::Form {
    Q_OBJECT
public:
    explicit frmInformation(QWidget *parent = nullptr);

    controls::RichTextBox &txtInfo() { return *m_text; }

private:
    controls::RichTextBox *m_text;
};

// Shows the page of a section code or of a name from infopages.h, beside the screen that is worked on (not modal).
// "All", and a code that has no page: the general hints. A page whose file is missing shows an empty text.
void ShowInfoPage(QStringView code);
// F1 on a screen that has no page button shows the page that fits the screen.
void installScreenHelp();
// Shows a plain text under a title, in a window heightFactor times as high as the main screen.
void showNote(const QString &title, const QString &text, double heightFactor = 0.7);
void unloadInformation();                   // closes the screen if it is open

}
