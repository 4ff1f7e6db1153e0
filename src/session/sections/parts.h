#pragma once

#include "session/sectiondesign.h"

// The words that the files of this folder are written with.
namespace vorel::sections {

using namespace Qt::StringLiterals;

inline SectionColumn hidden(const QString &field)
{
    return {.field = field, .role = SectionColumn::Role::Hidden};
}

inline SectionColumn shown(const QString &field, const QString &title)
{
    return {.field = field, .title = title, .isNumbered = true};
}

// A column given no title keeps its field's name.
inline SectionColumn shown(const QString &field)
{
    return shown(field, field);
}

inline SectionColumn button()
{
    return {.field = u"PBUT"_s, .role = SectionColumn::Role::Button};
}

// A button column whose width has a number of its own.
inline SectionColumn numberedButton()
{
    return {.field = u"PBUT"_s, .role = SectionColumn::Role::Button, .isNumbered = true};
}

inline SectionColumn sampled(SectionColumn column, const QString &sample)
{
    column.sample = sample;
    return column;
}

inline RowRule pictureRule()
{
    return {.kind = RowRule::Kind::Picture, .style = u"PICTURE"_s, .fields = {u"FILENAME"_s}};
}

inline TipLine day(const QString &label, const QString &field)
{
    return {label, {field}, TipLine::Show::Day};
}

inline TipLine date(const QString &label, const QString &field)
{
    return {label, {field}, TipLine::Show::Date};
}

inline TipLine money(const QString &label, const QString &field)
{
    return {label, {field}, TipLine::Show::Money};
}

inline TipLine text(const QString &label, const QString &field)
{
    return {label, {field}};
}

// Each in the file of its section.
SectionDesign appointments();
SectionDesign bills();
SectionDesign events();
SectionDesign allReminders();
SectionDesign appointmentsAndBills();
SectionDesign appointmentsAndEvents();
SectionDesign billsAndEvents();
SectionDesign shopping();
SectionDesign contacts();
SectionDesign toDo();
SectionDesign books();
SectionDesign movies();
SectionDesign music();
SectionDesign inventory();
SectionDesign profile();
SectionDesign messages();
SectionDesign passwords();
SectionDesign journal();
SectionDesign fileBackup();
SectionDesign notes();
SectionDesign howTo();
SectionDesign gardening();
SectionDesign recipes();
SectionDesign health();
SectionDesign golf();
SectionDesign vehicle();
SectionDesign businessNumbers();
SectionDesign emergencyNumbers();
SectionDesign christmasCards();
SectionDesign privateNumbers();
SectionDesign income();
SectionDesign expenses();
SectionDesign calculator();
SectionDesign calendar();
SectionDesign help();

}
