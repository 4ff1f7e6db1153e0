#pragma once

#include "session/state.h"

#include <vector>

// How a period is chosen, and how it becomes the three reminder queries. Pure: state in, state out; the caller re-applies
// the queries.
namespace vorel {

void SetDayPeriod(const QString &name);     // "Today", "Tomorrow", "Yesterday"; any other name keeps the period set
void SetThisWeek();
void SetNextWeek();
void SetLastWeek();
void SetThisMonth();
void SetNextMonth();
void SetLastMonth();
void SetThisYear();
void SetNextYear();
void SetLastYear();
void SetAllRecords();
void BuildPeriodQueries();

// The caption of panPeriod; rewrites gPeriodStart and gPeriodEnd through gDateShort first.
QString periodCaption();

// One row per period: menu, toolbar key, routine, caption.
struct PeriodEntry {
    const char16_t *menu;           // "mnuToday"
    const char16_t *toolbarKey;     // "TODAY"
    const char16_t *displayPeriod;  // "Today": the DisplayPeriod setting that opens with it, or ""
    void (*set)();
    QString (*caption)();           // "Today ......... 22/11/2026"
};
const std::vector<PeriodEntry> &periodTable();
// The row that opens at start by the DisplayPeriod setting; anything unknown is this week.
const PeriodEntry &startPeriod();

}
