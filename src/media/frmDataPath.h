#pragma once

#include "platform/controls/form.h"

// The one chooser for pictures, sounds, the data file and the backup files.
namespace vorel {

struct DataPathCall {
    QString caption;                    // the purpose, e.g. "Book Picture": names the folder and the target
    QString path;                       // what the field holds at present
    QString name;                       // the record's own name, e.g. a book's title
    QWidget *screen = nullptr;          // the screen on which the result is set
};

class frmDataPath : public controls::Form {
    Q_OBJECT
public:
    explicit frmDataPath(const DataPathCall &call, QWidget *parent = nullptr);
};

// The chooser, modal. The answer is the path that the field holds afterwards: the old one if nothing was applied.
QString ChooseDataPath(const DataPathCall &call);

}
