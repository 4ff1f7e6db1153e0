#include "reminders/frmRecordFields.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/format.h"
#include "platform/controls/elidedlabel.h"
#include "session/state.h"
#include "utilities/frmInformationFormat.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>

namespace vorel {

using namespace Qt::StringLiterals;

// The order is the order on the screen and of the Tab key.
const std::vector<frmRecord::FieldRow> &frmRecord::fieldTable()
{
    using enum Kind;
    using enum Place;
    static const std::vector<FieldRow> table{
        {u"txtDate", u"DATE", Date, u"ABE", u"&Date:", u"lblDate"},
        {u"lblDay", u"DAY", Caption, u"ABE", u"", u"", Beside, u"Week day"},
        {u"txtDateTo", u"DATETO", Date, u"E", u"Un&til:", u"lblDateTo"},
        {u"cboTime", u"APPTIME", Time, u"A", u"&Time:", u"lblTime"},
        {u"txtAppointment", u"APPOINTMENT", Line, u"A", u"&Appointment:", u"lblAppointment"},
        {u"chkMet", u"Met", Check, u"A", u"&Kept:", u"lblMet"},
        {u"txtBill", u"BILL", Line, u"B", u"B&ill:", u"lblBill"},
        {u"txtAmount", u"Amount", Money, u"B", u"A&mount:", u"lblAmount"},
        {u"chkFixedAmount", u"FIXEDAMOUNT", Check, u"B", u"Fi&xed amount:", u"lblFixedAmount"},
        {u"txtBillingDate", u"BILLINGDATE", Date, u"B", u"&Billed on:", u"lblBillingDate"},
        {u"txtPaymentDate", u"PAYMENTDATE", Date, u"B", u"&Paid on:", u"lblPaymentDate"},
        {u"chkPaid", u"PAID", Check, u"B", u"P&aid:", u"lblPaid"},
        {u"txtWebsite", u"WEBSITE", Line, u"B", u"&Website:", u"lblWebsite"},
        {u"cboSubject", u"SUBJECT", Subject, u"E", u"&Subject:", u"lblSubject"},
        {u"txtEvent", u"EVENT", Line, u"E", u"E&vent:", u"lblEvent"},
        {u"chkRecurring", u"RECURRING", Check, u"E", u"Every &year:", u"lblRecurring"},
        {u"chkDelete", u"DELETE", Check, u"ABE", u"D&elete after date:", u"lblDelete"},
        {u"lblFilename", u"FILENAME", Caption, u"E", u"Picture:", u"lblPicture"},
        {u"chkEmail", u"EMAIL", Check, u"E", u"E-mail &greeting:", u"lblEmail1"},
        {u"txtEmail", u"EMAILADDRESS", Line, u"E", u"&Address:", u"lblEmail2"},
        {u"lblLastEmailDate", u"LASTEMAILDATE", Caption, u"E", u"Last sent:", u"lblEmail3"},
        {u"chkCard", u"CARD", Check, u"E", u"&Card wanted:", u"lblCard"},
        {u"chkCardBuy", u"CARDPURCHASED", Check, u"E", u"Card &bought:", u"lblCardBuy"},
        {u"chkCardSent", u"CARDSENT", Check, u"E", u"Card ma&iled:", u"lblCardSent"},
        {u"cboDay", u"WeekNum", List, u"AB", u"", u"", Frequency, u"Which week of the month"},
        {u"cboWeekDay", u"WeekDay", List, u"AB", u"", u"", Frequency, u"Week day of each month"},
        {u"txtPeriodMonth", u"PERIODMONTH", Digits, u"AB", u"Mont&hs between:", u"lblPeriodMonth", Frequency},
        {u"txtPeriodDays", u"PERIODDAYS", Digits, u"AB", u"Day&s between:", u"lblPeriodDays", Frequency},
        {u"rtbFullDetails", u"FULLEVENT", Rich, u"E", u"&Full details:", u"lblFullDetails", Details},
        {u"lblEmailID", u"EMAILID", Caption, u"E", u"", u"", Hidden},
        {u"lblContactID", u"CONTACTID", Caption, u"E", u"", u"", Hidden},
        {u"lblID1", u"ID", Caption, u"ABE", u"", u"", Hidden},
        {u"lblID2", u"ID", Caption, u"ABE", u"", u"", Hidden},
    };
    return table;
}

QWidget *frmRecord::createField(const FieldRow &row)
{
    const auto combo = [this](const QStringList &items, bool editable) {
        auto *made = new QComboBox(this);
        made->setEditable(editable);
        made->setInsertPolicy(QComboBox::NoInsert);
        made->addItems(items);
        made->setMaxVisibleItems(16);
        return made;
    };
    switch (row.kind) {
    case Kind::Date:
    case Kind::Line:
        return new QLineEdit(this);
    case Kind::Money: {
        auto *made = new QLineEdit(this);
        made->setAlignment(Qt::AlignRight);
        return made;
    }
    case Kind::Digits: {
        auto *made = new QLineEdit(this);
        made->setValidator(new QRegularExpressionValidator(QRegularExpression(u"[0-9]*"_s), made));
        return made;
    }
    case Kind::Time:
        return combo(record::timeList(), true);
    case Kind::Subject:
        return combo({}, true);
    case Kind::List:
        if (row.control == u"cboDay")
            return combo({QString(), u"1st"_s, u"2nd"_s, u"3rd"_s, u"4th"_s}, false);
        return combo({QString(), u"Sun"_s, u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Sat"_s}, false);
    case Kind::Check:
        return new QCheckBox(this);
    case Kind::Rich: {
        auto *made = new controls::RichTextBox(this);
        useFormatMenu(made);
        return made;
    }
    case Kind::Caption: {
        auto *made = row.control == u"lblFilename" ? new controls::ElidedLabel(this) : new QLabel(this);
        made->setTextFormat(Qt::PlainText);
        return made;
    }
    }
    Q_UNREACHABLE();
}

void frmRecord::bindField(const FieldRow &row, QWidget *widget)
{
    controls::BindOptions options;
    if (row.kind == Kind::Date || row.control == u"lblLastEmailDate") {
        options.show = [](const basic::Value &stored) {
            const auto date = record::dateOf(stored.text());
            if (!date)
                return stored.text();
            return *date == basic::DateTime::fromParts(1900, 1, 1) ? QString() : displayDate(*date);   // 1900: none
        };
    }
    if (row.kind == Kind::Date)
        options.store = [this, &row](const QString &text) { return toStore(row, text); };
    if (row.kind == Kind::Money) {
        options.show = [](const basic::Value &stored) {
            return basic::CDbl(stored) == 0 ? stored.text() : basic::Format(stored, state().settings.gNumberFormat);
        };
    }
    m_data->bind(widget, row.field.toString(), std::move(options));
}

basic::Value frmRecord::toStore(const FieldRow &row, const QString &text) const
{
    if (row.control == u"txtDate")
        return rowDate().value_or(basic::Date());
    if (row.control == u"txtDateTo")        // kept as text
        return text;
    if (text.trimmed().isEmpty())
        return {};
    // The same spelling means the same day, even where the display format reads otherwise in this region.
    if (const auto date = rowDate(); date && text == displayDate(*date))
        return *date;
    if (const auto date = record::dateOf(text))
        return *date;
    return text;
}

}
