#include "media/frmDataPath.h"

#include "media/frmShowPic.h"
#include "media/pictureeditor.h"
#include "media/pictures.h"
#include "platform/basic/colournumber.h"
#include "platform/basic/files.h"
#include "platform/basic/prompts.h"
#include "platform/controls/colours.h"
#include "platform/controls/layout.h"
#include "platform/controls/picturebox.h"
#include "platform/controls/taskstrip.h"
#include "session/ini.h"
#include "session/shared.h"

#include <QLabel>
#include <QPushButton>
#include <QTimer>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;
namespace layout = controls::layout;

namespace {

constexpr QSize pictureSize(480, 320), screenSize(800, 560), slideSize(960, 680);
constexpr int slideMilliseconds = 5000;     // a picture's time in the slide show
const QString autoSearchCaption = u"A&uto Search"_s;

QLabel *label(const QString &name, const QString &text = {})
{
    auto *label = new QLabel(text);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

bool isPlainDefault(const QString &path)
{
    QString plain = path;
    plain.replace(u'\\', u'/');
    return plain.endsWith(u"/DefaultL.jpg"_s, Qt::CaseInsensitive) || plain.endsWith(u"/DefaultS.jpg"_s, Qt::CaseInsensitive);
}

QString nameIn(const QString &path)
{
    return path.mid(std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/')) + 1);
}

void takeFormColour(QWidget *form)
{
    const quint32 own = basic::numberOfColour(form->palette().color(QPalette::Window));
    const quint32 number = GetIniColour(u"FileBackColour"_s, own);
    if (number == own)
        return;
    const QColor back = basic::colourOfNumber(number);
    QPalette colours = form->palette();
    colours.setColor(QPalette::Window, back);
    colours.setColor(QPalette::WindowText, controls::readable(colours.color(QPalette::WindowText), back));
    form->setPalette(colours);
}

}

frmDataPath::frmDataPath(const DataPathCall &call, QWidget *parent)
    : Form(u"frmDataPath"_s, parent), m_call(call), m_allotment(allotmentOf(call.caption)), m_path(call.path),
      m_title(label(u"lblTitle"_s)), m_current(label(u"lblCurrentPath"_s)), m_selected(label(u"lblSelectedPath"_s)),
      m_status(label(u"lblSearch"_s)), m_number(label(u"lblNum"_s)), m_words(label(u"lblSlideCaption"_s)),
      m_image(new controls::PictureBox(u"picImage"_s)), m_chooser(new QWidget), m_slide(composeSlide()),
      m_timer(new QTimer(this)), m_strip(new controls::TaskStrip(m_task))
{
    setWindowTitle(call.caption);
    QFont strong = m_title->font();
    strong.setBold(true);
    m_title->setFont(strong);
    m_title->setWordWrap(false);
    m_image->setMinimumSize(pictureSize);
    m_image->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_image->setAccessibleName(u"Picture"_s);
    QLayout *chooser = layout::Column({composePaths(), m_status, m_strip, composeKeys()});
    layout::setMargins(chooser, 0);
    m_chooser->setLayout(chooser);
    auto *whole = new QVBoxLayout;
    whole->setSpacing(layout::unit);
    constexpr int nameRoom = 50 * layout::unit;
    auto *record = label(u"lblName"_s, call.slideShow ? QString() : fontMetrics().elidedText(call.name, Qt::ElideRight, nameRoom));
    record->setAlignment(Qt::AlignRight);
    record->setWordWrap(false);
    record->setHidden(record->text().isEmpty());
    whole->addLayout(layout::Row({m_title, layout::Stretch{}, record}));
    whole->addWidget(m_image, 1);
    whole->addWidget(m_slide);
    whole->addWidget(m_chooser);
    layout::setMargins(whole, 2 * layout::unit);
    setLayout(whole);
    takeFormColour(this);

    m_timer->setObjectName(u"Timer1"_s);
    m_timer->setInterval(slideMilliseconds);
    on(m_timer, &QTimer::timeout, this, [this] { cmdNext_Click(); });
    on(m_image, &controls::PictureBox::Clicked, this, [this] { picImage_Click(); });
    resize(call.slideShow ? slideSize : screenSize);
    Load();
}

QAbstractButton *frmDataPath::key(const QString &name, const QString &caption, const QString &toolTip,
                                  void (frmDataPath::*step)())
{
    QAbstractButton *button = controls::button(name, caption, {}, toolTip);
    if (auto *push = qobject_cast<QPushButton *>(button))
        push->setAutoDefault(false);
    on(button, &QAbstractButton::clicked, this, [this, step] { (this->*step)(); });
    return button;
}

QLayout *frmDataPath::composePaths()
{
    for (QLabel *path : {m_current, m_selected}) {
        path->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        path->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);      // a long path widens no window
        path->setMinimumHeight(2 * path->fontMetrics().lineSpacing());
    }
    return layout::Fields({{u"Current path"_s, m_current}, {u"Selected path"_s, m_selected}});
}

// Close stays outside: it can be pressed while a file is copied.
QWidget *frmDataPath::composeKeys()
{
    using Me = frmDataPath;
    m_keys = new QWidget;
    QAbstractButton *search = key(u"cmdSearch"_s, u"&Search..."_s, u" Choose a file "_s, &Me::cmdSearch_Click);
    m_autoSearch = key(u"cmdAutoSearch"_s, autoSearchCaption, u" Look for the file of the current path on all drives "_s,
                       &Me::cmdAutoSearch_Click);
    m_transfer = key(u"cmdTransfer"_s, u"&Transfer"_s, u" Copy the file into the folder of the program "_s, &Me::cmdTransfer_Click);
    m_remove = key(u"cmdRemove"_s, u"&Remove"_s, u" No file any more "_s, &Me::cmdRemove_Click);
    m_sound = key(u"cmdSound"_s, u"&Play"_s, u" Play the sound "_s, &Me::cmdSound_Click);
    m_apply = key(u"cmdApply"_s, u"&Apply"_s, u" Take the selected file and close "_s, &Me::cmdApply_Click);
    QLayout *keys = layout::Row({search, m_autoSearch, m_transfer, m_remove, m_sound, layout::Stretch{}, m_apply});
    m_keys->setLayout(keys);
    auto *line = new QWidget;
    line->setLayout(layout::Row({m_keys, key(u"cmdClose"_s, u"&Close"_s, u" Close without taking the selected file "_s,
                                             &Me::cmdClose_Click)}));
    return line;
}

QWidget *frmDataPath::composeSlide()
{
    auto *panel = new QWidget;
    panel->setObjectName(u"panSlide"_s);
    m_words->setAlignment(Qt::AlignCenter);
    m_number->setAlignment(Qt::AlignCenter);
    m_number->setMinimumWidth(8 * layout::unit);
    using Me = frmDataPath;
    m_previous = key(u"cmdPrevious"_s, u"&Previous"_s, u" The picture before "_s, &Me::cmdPrevious_Click);
    m_next = key(u"cmdNext"_s, u"&Next"_s, u" The next picture "_s, &Me::cmdNext_Click);
    m_auto = key(u"cmdAuto"_s, u"Auto"_s, u" The next picture every five seconds "_s, &Me::cmdAuto_Click);
    QLayout *keys = layout::Row({layout::Stretch{}, m_previous, m_number, m_next, m_auto, layout::Stretch{}});
    QLayout *content = layout::Column({m_words, keys});
    layout::setMargins(content, 0);
    panel->setLayout(content);
    return panel;
}

void frmDataPath::Load()
{
    m_slide->setVisible(m_call.slideShow);
    m_chooser->setVisible(!m_call.slideShow);
    m_section = m_call.section.isEmpty() ? state().selection.gSection : m_call.section;
    if (m_call.slideShow) {
        m_title->hide();
        basic::Trap([this] { GetSlideShowFiles(); });
        return;
    }
    m_title->setText(u" Select Picture or Sound File as appropriate"_s);
    m_current->setText(m_path);
    const bool isUnset = m_path.trimmed().isEmpty() || isPlainDefault(m_path);
    m_apply->setEnabled(!isUnset);
    m_transfer->setEnabled(!isUnset && !m_allotment.folder.isEmpty());
    m_sound->setVisible(m_allotment.kind == PathKind::Sound);
    m_image->setVisible(m_allotment.kind == PathKind::Picture);
    if (m_allotment.kind == PathKind::Picture)
        showInBox(m_path);
}

void frmDataPath::showInBox(const QString &path)
{
    QString shown = path;
    const bool isLost = !path.trimmed().isEmpty() && !path.contains(u'*') && pictureFile(path).isEmpty();
    m_image->setUnreadableText(isLost ? u"This picture was not found. Auto Search looks for it on all drives."_s
                                      : u"This picture cannot be shown."_s);
    ShowPic({.image = m_image, .keepsBroken = true}, shown, m_section);
    m_image->setToolTip(GetTipInfo(path));
    m_image->setCursor(basic::Dir(path).isEmpty() ? Qt::ArrowCursor : Qt::PointingHandCursor);
}

QString frmDataPath::GetTipInfo(const QString &path) const
{
    return path.trimmed().isEmpty() || isPlainDefault(path) ? QString() : path + u" CLICK TO EDIT "_s;
}

QString frmDataPath::fileInView() const
{
    return m_selected->text().isEmpty() ? m_current->text() : m_selected->text();
}

void frmDataPath::showSelected(const QString &path)
{
    m_selected->setText(path);
    m_status->clear();
    m_apply->setEnabled(true);
    m_remove->setEnabled(true);
    m_transfer->setEnabled(!m_allotment.folder.isEmpty());
    if (isPictureName(path))
        return showInBox(path);
    m_image->hide();
    if (m_allotment.kind == PathKind::Picture)
        m_status->setText(u"Only files ending in .bmp, .gif and .jpg are shown here."_s);
}

void frmDataPath::cmdSearch_Click()
{
    const std::optional<QString> chosen = basic::prompts().chooseFile(
        {m_call.caption, pictureFolder(m_allotment.folder), filterOf(m_allotment.kind), false});
    if (!chosen || chosen->isEmpty())
        return;
    setSearching(false);
    showSelected(*chosen);
}

void frmDataPath::setSearching(bool searching)
{
    if (m_searching && !searching)
        m_task.cancel();
    m_searching = searching;
    m_autoSearch->setText(searching ? u"&Stop"_s : autoSearchCaption);
    m_status->setText(searching ? u" Searching ... Please wait "_s : QString());
}

void frmDataPath::cmdAutoSearch_Click()
{
    if (m_searching)
        return setSearching(false);
    const QString name = nameIn(StripNulls(m_current->text()));
    if (name.isEmpty())
        return searched({});
    m_strip->setGuarded(nullptr);
    m_task.start([name, roots = searchRoots()](basic::TaskContext &context) { return searchFile(roots, name, context); },
                 [this](const basic::TaskOutcome<QString> &outcome) {
                     if (!m_searching)
                         return;                // stopped by its key, or by another choice
                     setSearching(false);
                     if (!outcome.isStopped())
                         searched(outcome.value());
                 });
    setSearching(true);
}

void frmDataPath::searched(const QString &path)
{
    if (path.isEmpty())
        m_status->setText(u" Sorry Picture Not Found "_s);
    else
        showSelected(path);
}

void frmDataPath::cmdTransfer_Click()
{
    setSearching(false);
    m_strip->setGuarded(m_keys);
    m_task.start([path = fileInView(), caption = m_call.caption](basic::TaskContext &context) {
                     return transferFile(path, caption, context);
                 },
                 [this](const basic::TaskOutcome<Transfer> &outcome) {
                     if (outcome.isStopped())
                         m_status->setText(u"Stopped. Nothing was copied."_s);
                     else
                         transferred(outcome.value());
                 });
}

void frmDataPath::transferred(const Transfer &transfer)
{
    if (!transfer.failure.isEmpty())
        return basic::MsgBox(transfer.failure, m_call.caption, basic::Icon::Exclamation);
    m_current->setText(transfer.path);
    showSelected(transfer.path);
    if (transfer.isTaken)
        m_status->setText(u"Another file named %1 is already in %2: that one is shown now. Yours was not copied; give it "
                          "another name to use it."_s.arg(nameIn(transfer.path), m_allotment.folder));
}

void frmDataPath::cmdRemove_Click()
{
    setSearching(false);
    m_path.clear();
    m_current->clear();
    m_selected->clear();
    m_apply->setEnabled(false);
    m_transfer->setEnabled(false);
    if (m_allotment.kind == PathKind::Picture)
        showInBox(m_path);
}

void frmDataPath::cmdApply_Click()
{
    if (AllotPictures())
        Close();
}

void frmDataPath::cmdClose_Click()
{
    Close();
}

// The path in the form in which it is stored; false if the field cannot hold it. Without a choice the plain picture takes
// the place of the record's own. A sound or a file has no such stand-in.
bool frmDataPath::AllotPictures()
{
    QString chosen = m_selected->text();
    if (chosen.isEmpty() && m_allotment.kind == PathKind::Picture)
        chosen = basic::programFolder() + u"/DefaultS.jpg"_s;
    if (chosen.isEmpty())
        return true;
    const bool movesWithFolder = m_allotment.kind == PathKind::Picture || m_allotment.kind == PathKind::Sound;
    const QString kept = movesWithFolder ? basic::keptPath(chosen) : chosen;
    if (m_call.room > 0 && kept.size() > m_call.room) {
        // "\BookPictures\x.jpg": Transfer is advised only where the path that it leads to fits.
        const qsizetype movedSize = m_allotment.folder.size() + nameIn(chosen).size() + 2;
        const bool canMove = !m_allotment.folder.isEmpty() && movedSize <= m_call.room;
        basic::MsgBox(u"This path has %1 characters, but the field holds only %2.\r\n"_s.arg(kept.size()).arg(m_call.room)
                          + (canMove ? u"Transfer copies the file into the program's folder, where its path is short."_s
                                     : u"Give the file a shorter name."_s),
                      m_call.caption, basic::Icon::Exclamation);
        return false;
    }
    m_path = kept;
    return true;
}

void frmDataPath::cmdSound_Click()
{
    if (!basic::Dir(fileInView()).isEmpty())
        playSoundFile(basic::realPath(fileInView()));
}

void frmDataPath::picImage_Click()
{
    const QString path = m_call.slideShow ? m_image->path() : fileInView();
    if (!basic::Dir(path).isEmpty() && !editPicture(basic::realPath(path)))
        basic::MsgBox(u"Unable to open "_s + path, m_call.caption, basic::Icon::Exclamation);
}

void frmDataPath::Unload()
{
    m_timer->stop();
    m_task.cancel();
}

void frmDataPath::GetSlideShowFiles()
{
    m_slides = vorel::GetSlideShowFiles(m_call.section, m_call.owner);
    for (QAbstractButton *key : {m_previous, m_next, m_auto})
        key->setEnabled(m_slides.size() > 1);
    if (m_slides.empty())
        m_words->setText(u"NO PICTURES TO VIEW"_s);
    else
        showSlide(0);
}

void frmDataPath::showSlide(std::ptrdiff_t place)
{
    const auto count = static_cast<std::ptrdiff_t>(m_slides.size());
    if (count == 0)
        return;
    m_place = (place + count) % count;
    const PictureSlot &slide = m_slides[static_cast<std::size_t>(m_place)];
    m_image->showFile(slide.path);
    m_image->setToolTip(GetTipInfo(slide.path));
    m_words->setText(slide.caption);
    m_number->setText(QString::number(m_place + 1) + u'/' + QString::number(count));
}

void frmDataPath::cmdNext_Click()
{
    showSlide(m_place + 1);
}

void frmDataPath::cmdPrevious_Click()
{
    showSlide(m_place - 1);
}

void frmDataPath::cmdAuto_Click()
{
    const bool starts = !m_timer->isActive();
    if (starts)
        m_timer->start();
    else
        m_timer->stop();
    m_auto->setText(starts ? u"Stop"_s : u"Auto"_s);
}

qsizetype textRoom(const dao::Recordset &row, QStringView field)
{
    if (!row)
        return 0;
    for (const dao::RecordsetField &known : row.Fields())
        if (known.Name.compare(field, Qt::CaseInsensitive) == 0)
            return known.Type == dao::dbText ? known.Size : 0;
    return 0;
}

QString chooseDataPath(const DataPathCall &call)
{
    frmDataPath form(call, call.screen);
    form.ShowModal();
    return form.path();
}

void showSlideShow(const QString &section, const PictureOwner &owner, const QString &name, QWidget *screen)
{
    DataPathCall call;
    call.caption = u"Slide Show - "_s + name;
    call.screen = screen;
    call.slideShow = true;
    call.section = section;
    call.owner = owner;
    frmDataPath(call, screen).ShowModal();
}

}
