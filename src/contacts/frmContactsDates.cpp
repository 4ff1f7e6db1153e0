#include "contacts/frmContacts.h"

#include "platform/basic/prompts.h"
#include "platform/controls/layout.h"
#include "records/frmSectionPanel.h"
#include "session/datafiles.h"
#include "session/datetexts.h"
#include "session/shared.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QVBoxLayout>

// The dates of a contact: six birthdays and six anniversaries, each of which a tick makes an event.
namespace vorel {

using namespace Qt::StringLiterals;
using controls::on;
using contacts::contactDay;
namespace layout = controls::layout;

namespace {

constexpr int dateRows = 6;

struct DateColumn { QString array, caption; int stretch = 0; };
struct DateTable {
    QString group;
    std::vector<DateColumn> columns;
};
const std::vector<DateTable> &dateTables()
{
    static const std::vector<DateTable> tables{
        {u"fraBirthdays"_s,
         {{u"txtdob"_s, u"Date"_s}, {u"txtBirthdaySurName"_s, u"Last name"_s, 1}, {u"txtBirthdayOtherName"_s, u"Other names"_s, 1},
          {u"chkEventsDOB"_s, u"Events"_s}, {u"chkAutoEmail"_s, u"E-mail"_s}, {u"chkAutoCard"_s, u"Card"_s}}},
        {u"fraAnniversaries"_s,
         {{u"txtAnniversary"_s, u"Date"_s}, {u"cboAnniversary"_s, u"Reason"_s, 1}, {u"txtAnnivSurName"_s, u"Name"_s, 1},
          {u"chkEventsAnn"_s, u"Events"_s}}}};
    return tables;
}

}

// The lines of the two tables are placed in grids of their own.
QFormLayout *frmContacts::formOf(const controls::Field &field)
{
    return field.panel == u"panDates" ? nullptr : frmSection::formOf(field);
}

controls::BindOptions frmContacts::bindOptions(const controls::Field &field) const
{
    controls::BindOptions options = frmSection::bindOptions(field);
    if (field.kind != controls::FieldKind::Date)
        return options;
    // A day that stands for none is not shown; a text that is no date stays as it is.
    options.show = [](const basic::Value &stored) {
        const QString text = stored.text();
        if (const auto day = contactDay(text))
            return shortDate(*day);
        return isNoDate(stored) ? QString() : text;
    };
    options.store = [](const QString &text) {
        const auto day = contactDay(text);
        return basic::Value(day ? shortDate(*day) : text);
    };
    return options;
}

void frmContacts::createDates()
{
    QVBoxLayout *column = panel(u"panDates"_s)->column();
    int at = 0;
    for (const DateTable &table : dateTables()) {
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(layout::unit);
        grid->setVerticalSpacing(layout::unit / 2);
        int place = 0;
        for (const DateColumn &one : table.columns) {
            auto *head = new QLabel(one.caption, this);
            const bool isCheck = one.array.startsWith(u"chk"_s);
            grid->addWidget(head, 0, place, isCheck ? Qt::AlignHCenter : Qt::AlignLeft);
            grid->setColumnStretch(place, one.stretch);
            for (int row = 0; row < dateRows; ++row)
                grid->addWidget(lineOf(memberName(one.array, row)), row + 1, place, isCheck ? Qt::AlignHCenter : Qt::Alignment());
            ++place;
        }
        const auto named = std::find_if(design().groups.begin(), design().groups.end(),
                                        [&table](const records::Group &one) { return one.name == table.group; });
        QWidget *group = layout::Group(table.group, named->title, grid);
        keep(group);
        column->insertWidget(at++, group);
    }
}

void frmContacts::connectDates()
{
    for (int row = 0; row < dateRows; ++row) {
        onClick(memberName(u"chkEventsDOB"_s, row), [this, row] { chkEventsDOB_Click(row); });
        onClick(memberName(u"chkEventsAnn"_s, row), [this, row] { chkEventsAnn_Click(row); });
        onClick(memberName(u"chkAutoEmail"_s, row), [this, row] { chkAutoEmail_Click(row); });
    }
}

contacts::Birthday frmContacts::birthday(int row) const
{
    return {text(memberName(u"txtBirthdaySurName"_s, row)), text(memberName(u"txtBirthdayOtherName"_s, row))};
}

contacts::Anniversary frmContacts::anniversary(int row) const
{
    return {text(memberName(u"cboAnniversary"_s, row)), text(memberName(u"txtAnnivSurName"_s, row))};
}

// The events are asked while their boxes are on show: each box is a query of its own.
void frmContacts::FormatDates()
{
    if (!panel(u"panDates"_s)->isVisible())
        return;
    std::array<bool, dateRows> birthdays{}, anniversaries{};
    basic::Trap([&] {
        dao::Database main = openDataFile(DataFile::Main);
        const dao::ManyReads reads(main);
        for (int row = 0; row < dateRows; ++row) {
            const auto at = static_cast<std::size_t>(row);
            const contacts::Birthday born = birthday(row);
            const contacts::Anniversary kept = anniversary(row);
            birthdays[at] = !born.naturalForm().isEmpty() && contacts::hasEvent(main, born);
            anniversaries[at] = !kept.name.trimmed().isEmpty() && contacts::hasEvent(main, kept);
        }
    });
    for (int row = 0; row < dateRows; ++row) {
        setTicked(memberName(u"chkEventsDOB"_s, row), birthdays[static_cast<std::size_t>(row)]);
        setTicked(memberName(u"chkEventsAnn"_s, row), anniversaries[static_cast<std::size_t>(row)]);
        auto *date = control<QWidget>(u"txtdob"_s, row);
        date->setToolTip(contacts::birthdayTip(text(date->objectName())));
    }
}

void frmContacts::beepAt(const QString &name)
{
    basic::prompts().beep();
    control<QWidget>(name)->setFocus();
}

void frmContacts::chkEventsDOB_Click(int row)
{
    const QString check = memberName(u"chkEventsDOB"_s, row), date = memberName(u"txtdob"_s, row);
    const contacts::Birthday born = birthday(row);
    const auto day = contactDay(text(date));
    if (!day && born.naturalForm().isEmpty()) {
        setTicked(check, false);
        return;
    }
    dao::Database main = openDataFile(DataFile::Main);
    if (!ticked(check)) {
        contacts::deleteEvents(main, born);
        setTicked(memberName(u"chkAutoEmail"_s, row), false);
    } else if (!day) {
        setTicked(check, false);
        beepAt(date);
        return;
    } else if (born.surname.trimmed().isEmpty()) {
        setTicked(check, false);
        beepAt(memberName(u"txtBirthdaySurName"_s, row));
        return;
    } else if (!contacts::addEvent(main, born, {.date = *day, .picture = text(u"lblPictureFile"_s).trimmed(),
                                                .isGreeted = ticked(memberName(u"chkAutoEmail"_s, row)),
                                                .address = text(u"txtEmail1Address"_s), .contact = currentId()})) {
        basic::MsgBox(u"The birthday is among the events, but without the picture: the path of the picture is too long for an event."_s, {},
                      basic::Icon::Information);
    }
    dao::DBEngine::Idle(dao::dbRefreshCache);
    PlaySoundNumber(2);
    FormatDates();
}

void frmContacts::chkEventsAnn_Click(int row)
{
    const QString check = memberName(u"chkEventsAnn"_s, row), date = memberName(u"txtAnniversary"_s, row);
    const contacts::Anniversary kept = anniversary(row);
    const auto day = contactDay(text(date));
    if (!day && kept.name.trimmed().isEmpty() && kept.reason.trimmed().isEmpty()) {
        setTicked(check, false);
        return;
    }
    dao::Database main = openDataFile(DataFile::Main);
    if (!ticked(check)) {
        contacts::deleteEvents(main, kept);
    } else {
        const QString missing = !day ? date
            : kept.reason.trimmed().isEmpty() ? memberName(u"cboAnniversary"_s, row)
            : kept.name.trimmed().isEmpty() ? memberName(u"txtAnnivSurName"_s, row) : QString();
        if (!missing.isEmpty()) {
            setTicked(check, false);
            beepAt(missing);
            return;
        }
        contacts::addEvent(main, kept, *day, currentId());
    }
    dao::DBEngine::Idle(dao::dbRefreshCache);
    PlaySoundNumber(2);
    FormatDates();
}

// A greeting needs an address.
void frmContacts::chkAutoEmail_Click(int row)
{
    if (text(u"txtEmail1Address"_s).trimmed().isEmpty())
        setTicked(memberName(u"chkAutoEmail"_s, row), false);
}

// The tip of a birthday is that of the day in its box now.
bool frmContacts::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn && watched->objectName().startsWith(u"txtdob("_s))
        control<QWidget>(watched->objectName())->setToolTip(contacts::birthdayTip(text(watched->objectName())));
    return frmSection::eventFilter(watched, event);
}

}
