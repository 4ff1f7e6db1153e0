#pragma once

#include <QSize>
#include <QString>
#include <vector>

// A page of one record for the browser.
namespace vorel::records {

struct ViewBlock {
    QString label;                      // "TITLE"
    QString text;                       // plain; each line becomes an element of its own
    bool onlyIfFilled = false;          // left out while the trimmed text is empty
    bool dashed = false;                // each line is preceded by " - "
};

struct ViewPage {
    QString file;                       // "\Book.HTML"; lies in the program folder
    QString heading;                    // "BOOKS"
    QString picture;                    // path; "" or one of the two plain defaults: no picture
    QSize pictureSize;                  // the loaded picture's, in twips
    std::vector<ViewBlock> blocks;
};

QString viewPageText(const ViewPage &page);         // the HTML
// Writes the page again and opens it with the desktop's browser. Error 75 with the file's name in its text when the page
// cannot be written (also when the disk is full); 53 when nothing on the desktop opens it.
void showViewPage(const ViewPage &page);

}
