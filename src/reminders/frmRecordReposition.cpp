#include "reminders/frmRecord.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/files.h"
#include "platform/controls/picturefile.h"
#include "platform/controls/richtextbox.h"
#include "platform/desktop/desktop.h"
#include "session/state.h"

#include <QIcon>
#include <QLabel>

// The row as shown.
namespace vorel {

using namespace Qt::StringLiterals;

namespace {

struct ViewField {
    QStringView control, field;
    QStringView sections;
    bool isDate;
};
// The fields whose boxes may show something else than is stored, by the screen's own doing.
constexpr ViewField viewFields[] = {
    {u"lblDay", u"DAY", u"ABE", false},
    {u"txtDateTo", u"DATETO", u"E", true},
    {u"txtBillingDate", u"BILLINGDATE", u"B", true},
    {u"txtPaymentDate", u"PAYMENTDATE", u"B", true},
    {u"rtbFullDetails", u"FULLEVENT", u"E", false},
};

// As sharp as the screen is; a smaller one stays as small as it is.
QPixmap pictureOf(const QString &path, QSize room)
{
    return QPixmap::fromImage(controls::readPicture(path, room).image);
}

}

void frmRecord::dtaData_Reposition()
{
    m_showing = true;
    const bool rows = m_data->hasRows();
    m_outcome.lastId = static_cast<qint32>(record::number(text(u"lblID1"_s)));
    if (rows && text(u"lblDay"_s).isEmpty())
        setText(u"lblDay"_s, record::weekDayOf(rowDate()));
    applyBirthday();
    showFrequency();
    if (m_section.kind == ReminderKind::Event) {
        if (text(u"rtbFullDetails"_s).isEmpty())
            setText(u"rtbFullDetails"_s, text(u"txtEvent"_s));
        setText(u"lblCategory"_s, text(u"cboSubject"_s));
        control<QLabel>(u"lblFilename"_s)->setToolTip(text(u"lblFilename"_s));
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
    if (m_section.kind != ReminderKind::Event)
        return;
    const bool birthday = m_data->hasRows() && record::isBirthday(text(u"cboSubject"_s));
    if (birthday)
        setText(u"txtDateTo"_s, {});
    control<QWidget>(u"txtDateTo"_s)->setEnabled(!birthday);
    if (birthday && m_calcBox == u"txtDateTo")
        moveCalcBeside(u"txtDate"_s);
}

void frmRecord::showEventParts()
{
    const bool birthday = m_data->hasRows() && record::isBirthday(text(u"cboSubject"_s));
    showGreeting(record::greetingOf(birthday, ticked(u"chkEmail"_s), text(u"txtEmail"_s), text(u"lblEmailID"_s),
                                    ticked(u"chkCard"_s)));
}

void frmRecord::showGreeting(const record::Greeting &greeting)
{
    for (const QString &name : {u"chkEmail"_s, u"chkCard"_s})
        setVisible_(name, greeting.offered);
    for (const QString &name : {u"txtEmail"_s, u"lblLastEmailDate"_s})
        setVisible_(name, greeting.address);
    for (const QString &name : {u"chkCardBuy"_s, u"chkCardSent"_s})
        setVisible_(name, greeting.card);
    setVisible_(u"cmdEmail"_s, greeting.write);
}

void frmRecord::FormatDates()
{
    const record::DateBoxes shown{text(u"txtDate"_s), text(u"txtDateTo"_s), text(u"txtBillingDate"_s), text(u"txtPaymentDate"_s)};
    const record::DateBoxes made = record::FormatDates(shown, rowDate());
    setText(u"txtDate"_s, made.date);
    setText(u"txtDateTo"_s, made.dateTo);
    setText(u"txtBillingDate"_s, made.billingDate);
    setText(u"txtPaymentDate"_s, made.paymentDate);
}

// Looking at a row changes nothing in it, although its boxes may show more than it holds.
void frmRecord::takeViewAsShown()
{
    m_data->takeAsShown(control<QWidget>(u"txtDate"_s));        // another spelling of the same day
    for (const ViewField &view : viewFields)
        m_data->takeAsShown(control<QWidget>(view.control.toString()));
}

void frmRecord::storeView()
{
    dao::Recordset &rows = m_data->Recordset();
    QList<std::pair<QString, dao::Value>> changes;
    for (const ViewField &view : viewFields) {
        if (!view.sections.contains(m_section.code))
            continue;
        const QString shown = text(view.control.toString());
        const dao::Value stored = rows.Get(view.field);
        const auto date = view.isDate ? record::dateOf(stored.text()) : std::nullopt;
        if (shown == (date ? displayDate(*date) : controls::RichTextBox::asStored(stored.text())))
            continue;
        const bool follows = view.isDate && view.field != u"DATETO" && rowDate();
        if (follows && !shown.isEmpty())
            changes.append({view.field.toString(), *rowDate()});
        else if (!follows)
            changes.append({view.field.toString(), shown});
    }
    if (!changes.isEmpty()) {
        rows.Edit();
        for (const auto &[field, value] : changes)
            rows.Set(field, value);
        rows.Update();
    }
    takeViewAsShown();
}

std::optional<basic::DateTime> frmRecord::rowDate() const
{
    const QString shown = text(u"txtDate"_s);
    // The stored day as it is shown is that day, even where the display format reads otherwise in this region.
    std::optional<basic::DateTime> stored;
    basic::IgnoreErrors([&] {
        const dao::Recordset &rows = m_data->Recordset();
        if (rows && !rows.BOF() && !rows.EOF_() && !rows.Get(u"DATE").isNull())
            stored = basic::CDate(rows.Get(u"DATE"));
    });
    if (stored && shown == displayDate(*stored))
        return stored;
    return record::dateOf(shown);
}

void frmRecord::correctDate()
{
    if (!rowDate())
        setText(u"txtDate"_s, displayDate(basic::Date()));
    setText(u"lblDay"_s, record::weekDayOf(rowDate()));
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
        const QString own = desktop::findResource(u"\\"_s + m_section.picture.toString() + u".jpg"_s);
        if (!own.isEmpty())
            shown = pictureOf(own, pixels);
    }
    if (shown.isNull())
        shown = QIcon(u":/pictures/"_s + m_section.picture.toString() + u".svg"_s).pixmap(room, scale);
    else
        shown.setDevicePixelRatio(scale);
    picture->setPixmap(shown);
}

}
