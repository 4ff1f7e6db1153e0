#include "reminders/frmRecord.h"

#include "calendar/picker.h"
#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/files.h"
#include "platform/desktop/picturefile.h"
#include "platform/controls/richtextbox.h"
#include "platform/desktop/desktop.h"
#include "session/datetexts.h"
#include "session/shared.h"
#include "session/state.h"

#include <QIcon>
#include <QLabel>

// The row as shown.
namespace vorel {

using namespace Qt::StringLiterals;

namespace {

// The boxes that may show something else than is stored, by the screen's own doing.
const QStringList &viewBoxes()
{
    static const QStringList boxes{u"txtDate"_s, u"lblDay"_s, u"txtDateTo"_s, u"txtBillingDate"_s, u"txtPaymentDate"_s,
                                   u"rtbFullDetails"_s};
    return boxes;
}

constexpr std::pair<QStringView, QStringView> dateBoxes[] = {
    {u"txtDate", u"DATE"}, {u"txtDateTo", u"DATETO"}, {u"txtBillingDate", u"BILLINGDATE"}, {u"txtPaymentDate", u"PAYMENTDATE"}};

bool hasField(const dao::Recordset &rows, QStringView name)
{
    const auto fields = rows.Fields();
    return std::any_of(fields.begin(), fields.end(), [name](const auto &f) { return f.Name.compare(name, Qt::CaseInsensitive) == 0; });
}

// As sharp as the screen is; a smaller one stays as small as it is.
QPixmap pictureOf(const QString &path, QSize room)
{
    return QPixmap::fromImage(desktop::readPicture(path, room).image);
}

}

void frmRecord::dtaData_Reposition()
{
    m_showing = true;
    const bool rows = dtaData().hasRows();
    m_outcome.lastId = static_cast<qint32>(reminders::number(text(u"lblID1"_s)));
    rememberDates();
    setText(u"lblDay"_s, reminders::weekDayOf(rowDate()));
    setRecordTitle(m_design.title.toString(), rows ? shownApostrophes(text(m_design.textControl.toString())) : QString());
    applyBirthday();
    showFrequency();
    if (isA(ReminderKind::Event)) {
        if (text(u"rtbFullDetails"_s).isEmpty())
            setText(u"rtbFullDetails"_s, text(u"txtEvent"_s));
        setText(u"lblCategory"_s, text(u"cboSubject"_s));
        ShowPic(text(u"lblFilename"_s));
        showEventParts();
    }
    FormatDates();
    takeViewAsShown();
    AllowInput();
    m_showing = false;
}

// A birthday lasts its one day.
void frmRecord::applyBirthday()
{
    if (!isA(ReminderKind::Event))
        return;
    const bool birthday = dtaData().hasRows() && reminders::isBirthday(text(u"cboSubject"_s));
    if (birthday)
        setText(u"txtDateTo"_s, {});
    control(u"txtDateTo"_s)->setEnabled(!birthday);
    if (birthday && m_calcBox == u"txtDateTo")
        moveCalcBeside(u"txtDate"_s);
}

void frmRecord::showEventParts()
{
    const bool birthday = dtaData().hasRows() && reminders::isBirthday(text(u"cboSubject"_s));
    showGreeting(reminders::greetingOf(birthday, ticked(u"chkEmail"_s), text(u"txtEmail"_s), text(u"lblEmailID"_s),
                                    ticked(u"chkCard"_s)));
}

void frmRecord::showGreeting(const reminders::Greeting &greeting)
{
    for (const QString &name : {u"chkEmail"_s, u"chkCard"_s})
        showField(name, greeting.offered);
    for (const QString &name : {u"txtEmail"_s, u"lblLastEmailDate"_s})
        showField(name, greeting.address);
    for (const QString &name : {u"chkCardBuy"_s, u"chkCardSent"_s})
        showField(name, greeting.card);
    control(u"cmdEmail"_s)->setVisible(greeting.write);
}

// Each box knows the stored day that it shows, even where its format cannot be read back.
void frmRecord::rememberDates()
{
    const dao::Recordset &rows = dtaData().Recordset();
    if (!dtaData().hasRows() || rows.BOF() || rows.EOF_())
        return;
    for (const auto &[name, field] : dateBoxes) {
        if (hasField(rows, field)) {
            if (const auto day = reminders::storedDay(rows.Get(field)); day && text(name.toString()) == displayDate(*day))
                showDate(control(name.toString()), *day);
        }
    }
}

// The boxes that hold a date follow the row's own: the settled behaviour of this screen after a save.
void frmRecord::FormatDates()
{
    const auto day = rowDate();
    if (!day)
        return;
    for (const auto &[name, field] : dateBoxes) {
        if (const QString box = name.toString(); dateOf(box))
            showDate(control(box), *day);
    }
}

// Looking at a row changes nothing in it, although its boxes may show more than it holds.
void frmRecord::takeViewAsShown()
{
    for (const QString &box : viewBoxes())
        dtaData().takeAsShown(control(box));
}

void frmRecord::storeView()
{
    const auto day = rowDate();
    dao::Recordset &rows = dtaData().Recordset();
    QList<std::pair<QString, dao::Value>> changes;
    const auto put = [&](const QString &field, const dao::Value &value) {
        if (controls::RichTextBox::asStored(rows.Get(field).text()) != value.text())
            changes.append({field, value});
    };
    if (day)
        put(u"DATE"_s, *day);               // a time of day that another program stored does not outlive the save
    put(u"DAY"_s, text(u"lblDay"_s));
    if (isA(ReminderKind::Event)) {
        if (day)
            put(u"DATETO"_s, dateOf(u"txtDateTo"_s) ? storedDateText(*day) : text(u"txtDateTo"_s));
        put(u"FULLEVENT"_s, text(u"rtbFullDetails"_s));
    } else if (isA(ReminderKind::Bill) && day) {
        for (const auto &[box, field] : {std::pair{u"txtBillingDate"_s, u"BILLINGDATE"_s}, {u"txtPaymentDate"_s, u"PAYMENTDATE"_s}}) {
            if (!text(box).isEmpty())
                put(field, *day);
        }
    }
    if (changes.isEmpty())
        return;
    rows.Edit();
    for (const auto &[field, value] : changes)
        rows.Set(field, value);
    rows.Update();
}

std::optional<basic::DateTime> frmRecord::dateOf(const QString &box) const { return shownDate(control(box)); }

void frmRecord::correctDate()
{
    if (!rowDate())
        showDate(control(u"txtDate"_s), basic::Date());
    setText(u"lblDay"_s, reminders::weekDayOf(rowDate()));
}

void frmRecord::ShowPic(const QString &path)
{
    auto *picture = control<QLabel>(u"picImage"_s);
    const double scale = picture->devicePixelRatioF();
    const QSize room = QSize(picture->minimumWidth(), picture->height());
    const QSize pixels = room * scale;
    QPixmap shown;
    if (!path.isEmpty() && !basic::Dir(path).isEmpty())
        shown = pictureOf(path, pixels);
    if (shown.isNull()) {
        const QString own = desktop::findResource(u"\\"_s + m_design.picture.toString() + u".jpg"_s);
        if (!own.isEmpty())
            shown = pictureOf(own, pixels);
    }
    if (shown.isNull())
        shown = QIcon(u":/pictures/"_s + m_design.picture.toString() + u".svg"_s).pixmap(room, scale);
    else
        shown.setDevicePixelRatio(scale);
    picture->setPixmap(shown);
}

}
