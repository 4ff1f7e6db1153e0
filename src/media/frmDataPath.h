#pragma once

#include "media/allotment.h"
#include "media/filesearch.h"
#include "media/picturerows.h"
#include "platform/controls/form.h"

class QLabel;
class QLayout;
class QTimer;

namespace vorel::controls {
class PictureBox;
class TaskStrip;
}

// The one chooser for pictures, sounds, the data file and the backup files. The slide show of a record's picture set runs
// on it too.
namespace vorel {

struct DataPathCall {
    QString caption{};                  // the purpose, e.g. "Book Picture": names the folder and the target
    QString path{};                     // what the field holds at present
    QString name{};                     // the record's own name, e.g. a book's title
    QWidget *screen = nullptr;          // the caller's, over which the chooser opens
    qsizetype room = 0;                 // how many characters the field holds; 0 = any number
    bool slideShow = false;             // of the picture set of `owner` in `section`, instead of the chooser
    QString section{};                  // whose default picture is shown, "" = that of the section in view
    PictureOwner owner{};
};

class frmDataPath : public controls::Form {
    Q_OBJECT
public:
    explicit frmDataPath(const DataPathCall &call, QWidget *parent = nullptr);

    const QString &path() const { return m_path; }      // what the field is to hold

protected:
    void Unload() override;

private:
    QLayout *composePaths();
    QWidget *composeKeys();
    QWidget *composeSlide();
    QAbstractButton *key(const QString &name, const QString &caption, const QString &toolTip, void (frmDataPath::*step)());
    void Load();
    void showSelected(const QString &path);
    void showInBox(const QString &path);
    QString fileInView() const;                         // the selected one, else the current
    QString GetTipInfo(const QString &path) const;
    void setSearching(bool searching);
    void searched(const QString &path);
    void transferred(const Transfer &transfer);
    bool AllotPictures();
    void cmdSearch_Click();
    void cmdAutoSearch_Click();
    void cmdTransfer_Click();
    void cmdRemove_Click();
    void cmdApply_Click();
    void cmdClose_Click();
    void cmdSound_Click();
    void picImage_Click();

    void GetSlideShowFiles();
    void showSlide(std::ptrdiff_t place);
    void cmdNext_Click();
    void cmdPrevious_Click();
    void cmdAuto_Click();

    const DataPathCall m_call;
    const Allotment m_allotment;
    QString m_path, m_section;
    // Before the panels that create them.
    QAbstractButton *m_autoSearch = nullptr, *m_transfer = nullptr, *m_remove = nullptr, *m_sound = nullptr, *m_apply = nullptr;
    QAbstractButton *m_previous = nullptr, *m_next = nullptr, *m_auto = nullptr;
    QLabel *m_title, *m_current, *m_selected, *m_status, *m_number, *m_words;
    controls::PictureBox *m_image;
    QWidget *m_chooser, *m_slide;
    QTimer *m_timer;
    basic::Task m_task;                                 // the search, or the copying
    controls::TaskStrip *m_strip;
    QWidget *m_keys = nullptr;
    bool m_searching = false;
    std::vector<PictureSlot> m_slides;
    std::ptrdiff_t m_place = 0;
};

// How many characters a text field of the row holds; 0 if any number.
qsizetype textRoom(const dao::Recordset &row, QStringView field);

// The chooser, modal. The answer is the path that the field is to hold, in the form in which it is stored: the old one if
// nothing was applied. The caller puts it into its field.
QString chooseDataPath(const DataPathCall &call);
// The slide show of a record's pictures, modal. name: the record's own, for the title.
void showSlideShow(const QString &section, const PictureOwner &owner, const QString &name, QWidget *screen);

}
