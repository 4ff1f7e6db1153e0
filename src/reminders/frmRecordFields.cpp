#include "reminders/frmRecordFields.h"

#include "calendar/picker.h"
#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/format.h"
#include "platform/controls/richtextbox.h"
#include "session/datetexts.h"
#include "session/state.h"
#include "utilities/frmInformationFormat.h"

#include <QComboBox>

namespace vorel {

using namespace Qt::StringLiterals;
using controls::Field;
using controls::FieldKind;
using controls::FieldRule;

namespace {

const QString details = u"details"_s, frequency = u"frequency"_s;

// By whom a field is shown: the letters of the record codes.
struct SectionField {
    QStringView sections;
    Field field;
};

const std::vector<SectionField> &fieldTable()
{
    using enum FieldKind;
    static const std::vector<SectionField> table{
        {u"ABE", {.control = u"txtDate"_s, .field = u"DATE"_s, .kind = Date, .label = u"&Date:"_s}},
        {u"ABE", {.control = u"lblDay"_s, .field = u"DAY"_s, .kind = Caption, .beside = true, .spoken = u"Week day"_s}},
        {u"E", {.control = u"txtDateTo"_s, .field = u"DATETO"_s, .kind = Date, .label = u"Un&til:"_s}},
        {u"A", {.control = u"cboTime"_s, .field = u"APPTIME"_s, .kind = List, .label = u"&Time:"_s}},
        {u"A", {.control = u"txtAppointment"_s, .field = u"APPOINTMENT"_s, .label = u"&Appointment:"_s, .rules = FieldRule::Grave}},
        {u"A", {.control = u"chkMet"_s, .field = u"Met"_s, .kind = Check, .label = u"&Met:"_s, .labelName = u"lblMet"_s}},
        {u"B", {.control = u"txtBill"_s, .field = u"BILL"_s, .label = u"B&ill:"_s, .rules = FieldRule::Grave}},
        {u"B", {.control = u"txtAmount"_s, .field = u"Amount"_s, .kind = Amount, .label = u"A&mount:"_s}},
        {u"B", {.control = u"chkFixedAmount"_s, .field = u"FIXEDAMOUNT"_s, .kind = Check, .label = u"Fi&xed amount:"_s, .labelName = u"lblFixedAmount"_s}},
        {u"B", {.control = u"txtBillingDate"_s, .field = u"BILLINGDATE"_s, .kind = Date, .label = u"&Billed on:"_s}},
        {u"B", {.control = u"txtPaymentDate"_s, .field = u"PAYMENTDATE"_s, .kind = Date, .label = u"&Paid on:"_s}},
        {u"B", {.control = u"chkPaid"_s, .field = u"PAID"_s, .kind = Check, .label = u"P&aid:"_s, .labelName = u"lblPaid"_s}},
        {u"B", {.control = u"txtWebsite"_s, .field = u"WEBSITE"_s, .label = u"&Website:"_s}},
        {u"E", {.control = u"cboSubject"_s, .field = u"SUBJECT"_s, .kind = List, .label = u"Sub&ject:"_s, .rules = FieldRule::Grave}},
        {u"E", {.control = u"txtEvent"_s, .field = u"EVENT"_s, .label = u"E&vent:"_s, .rules = FieldRule::Grave}},
        {u"E", {.control = u"chkRecurring"_s, .field = u"RECURRING"_s, .kind = Check, .label = u"Recurr&ing:"_s, .labelName = u"lblRecurring"_s}},
        {u"ABE", {.control = u"chkDelete"_s, .field = u"DELETE"_s, .kind = Check, .label = u"D&elete after date:"_s, .labelName = u"lblDelete"_s}},
        {u"E", {.control = u"lblFilename"_s, .field = u"FILENAME"_s, .kind = Path, .label = u"Picture:"_s, .labelName = u"lblPicture"_s}},
        {u"E", {.control = u"chkEmail"_s, .field = u"EMAIL"_s, .kind = Check, .label = u"E-mail &greeting:"_s, .labelName = u"lblEmail1"_s}},
        {u"E", {.control = u"txtEmail"_s, .field = u"EMAILADDRESS"_s, .label = u"&Address:"_s, .labelName = u"lblEmail2"_s}},
        {u"E", {.control = u"lblLastEmailDate"_s, .field = u"LASTEMAILDATE"_s, .kind = Caption, .label = u"Last sent:"_s, .labelName = u"lblEmail3"_s}},
        {u"E", {.control = u"chkCard"_s, .field = u"CARD"_s, .kind = Check, .label = u"Send &card:"_s, .labelName = u"lblCard"_s}},
        {u"E", {.control = u"chkCardBuy"_s, .field = u"CARDPURCHASED"_s, .kind = Check, .label = u"Card &bought:"_s, .labelName = u"lblCardBuy"_s}},
        {u"E", {.control = u"chkCardSent"_s, .field = u"CARDSENT"_s, .kind = Check, .label = u"Card &sent:"_s, .labelName = u"lblCardSent"_s}},
        {u"AB", {.control = u"cboDay"_s, .field = u"WeekNum"_s, .kind = Choice, .panel = frequency, .spoken = u"Which week of the month"_s}},
        {u"AB", {.control = u"cboWeekDay"_s, .field = u"WeekDay"_s, .kind = Choice, .panel = frequency, .spoken = u"Week day of each month"_s}},
        {u"AB", {.control = u"txtPeriodMonth"_s, .field = u"PERIODMONTH"_s, .kind = Digits, .panel = frequency, .label = u"Mont&hs between:"_s}},
        {u"AB", {.control = u"txtPeriodDays"_s, .field = u"PERIODDAYS"_s, .kind = Digits, .panel = frequency, .label = u"Day&s between:"_s}},
        {u"E", {.control = u"rtbFullDetails"_s, .field = u"FULLEVENT"_s, .kind = Rich, .panel = details, .label = u"&Full details:"_s}},
        {u"E", {.control = u"lblEmailID"_s, .field = u"EMAILID"_s, .kind = Hidden}},
        {u"E", {.control = u"lblContactID"_s, .field = u"CONTACTID"_s, .kind = Hidden}},
        {u"ABE", {.control = u"lblID1"_s, .field = u"ID"_s, .kind = Hidden}},
        {u"ABE", {.control = u"lblID2"_s, .field = u"ID"_s, .kind = Hidden}},
    };
    return table;
}

QStringList choicesOf(const QString &control)
{
    if (control == u"cboTime")
        return reminders::timeList();
    if (control == u"cboDay")
        return {QString(), u"1st"_s, u"2nd"_s, u"3rd"_s, u"4th"_s};
    if (control == u"cboWeekDay")
        return {QString(), u"Sun"_s, u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Sat"_s};
    return {};
}

QString shownDay(const basic::Value &stored)
{
    const auto day = reminders::storedDay(stored);
    if (!day)
        return stored.text();
    return *day == basic::DateTime::fromParts(1900, 1, 1) ? QString() : displayDate(*day);      // 1900: none
}

// A date in a text field; anything else is refused as in a date field.
basic::Value dateText(const std::optional<basic::DateTime> &day, const QString &typed)
{
    if (day)
        return storedDateText(*day);
    if (!typed.trimmed().isEmpty())
        throw basic::Error(0, u"\"%1\" is not a date"_s.arg(typed));
    return QString();
}

}

// The order is the order on the screen and of the Tab key. What the section does not show is not bound.
std::vector<Field> recordFields(const reminders::ReminderDesign &design)
{
    std::vector<Field> fields;
    for (const SectionField &row : fieldTable()) {
        fields.push_back(row.field);
        if (!row.sections.contains(design.code))
            fields.back().field.clear();
    }
    return fields;
}

bool isOnPanel(const Field &field) { return !field.panel.isEmpty(); }

QWidget *frmRecord::createWidget(const Field &field)
{
    QWidget *widget = RecordForm::createWidget(field);
    if (auto *combo = qobject_cast<QComboBox *>(widget))
        combo->addItems(choicesOf(field.control));
    else if (auto *rich = qobject_cast<controls::RichTextBox *>(widget))
        useFormatMenu(rich);
    return widget;
}

controls::BindOptions frmRecord::bindOptions(const Field &field) const
{
    controls::BindOptions options = RecordForm::bindOptions(field);
    const QString &name = field.control;
    if (field.kind == FieldKind::Date || name == u"lblLastEmailDate")
        options.show = shownDay;
    if (name == u"txtDate")
        options.store = [this](const QString &) { return basic::Value(rowDate().value_or(basic::Date())); };
    else if (name == u"txtDateTo")
        options.store = [this, name](const QString &text) { return dateText(dateOf(name), text); };
    else if (field.kind == FieldKind::Date)
        options.store = [this, name](const QString &text) {
            const auto day = dateOf(name);
            return day ? basic::Value(*day) : text.trimmed().isEmpty() ? basic::Value() : basic::Value(text);
        };
    else if (name == u"cboTime") {
        options.show = [](const basic::Value &stored) { return typedTime(stored.text()); };
        options.store = [](const QString &text) { return basic::Value(typedTime(text)); };
    } else if (field.kind == FieldKind::Amount) {
        options.show = [](const basic::Value &stored) {
            return basic::CDbl(stored) == 0 ? stored.text() : basic::Format(stored, state().settings.gNumberFormat);
        };
    }
    return options;
}

}
