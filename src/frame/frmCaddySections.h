#pragma once

#include "frame/frmCaddyColumns.h"
#include "frame/frmCaddyControls.h"
#include "frame/frmCaddySearch.h"
#include "session/mainscreen.h"
#include "session/sections.h"

namespace vorel {

// Turns the screen from one section to another, by the catalogue.
class CaddySections {
public:
    CaddySections(CaddyControls &c, MainScreen &screen, GridLayout &sizes, CaddyColumns &columns, CaddySearch &search);

    void cmdCat_Click(int index);
    void DisplayCategory(const QString &name);
    // Reads the rows of the grids on show again. The first failure ends it: the rows and the caption stay as they are, and
    // retry takes it up again.
    void GetData();
    // Where rows are still to be read: tries once more, without waiting for another program. false: still none.
    bool retry();
    void rowsChanged(const QString &table);     // by whatever part of the program; the grids that show them are read anew
    void readChanged();                         // those that had to wait: for the screen over this one, for typing
    void fileIsBusy();                          // says so over the grids until the rows can be read
    void RefreshData();
    void UpdateRowHeight();
    void SizeGrids();
    void applyFeatures();
    // Opens what a name means that is not a section but a screen of its own.
    void answer(const QString &name, std::function<void()> step) { m_answers[name] = std::move(step); }

private:
    void show(const SectionDesign &section);
    void showEmptyTexts(const SectionDesign &section);
    void clearScreen(const SectionDesign &section);
    void showReminders(const SectionDesign &section);
    void showGrid(const SectionDesign &section);
    void showAction(const SectionDesign &section);
    void openScreen(const QString &name);
    void connectSubjects(const SectionDesign &section);
    void showSubjectColumns(const SectionDesign &section);
    bool refresh(GridPane &pane);
    bool readReminders();
    bool readSubjects();
    bool readWaiting();
    bool read(GridPane &pane);
    bool readInPlace(GridPane &pane);
    void rowsFailed(int number, const QString &text);
    void showNotice();
    void allowPeriods(bool allow);
    void markButton(const QString &tag);
    void allowPrinting(const SectionDesign &section);

    CaddyControls &m_c;
    MainScreen &m_screen;
    GridLayout &m_sizes;
    CaddyColumns &m_columns;
    CaddySearch &m_search;
    std::map<QString, std::function<void()>> m_answers;
    bool m_switching = false;
    bool m_waiting = false;                     // rows are still to be read
    bool m_quiet = false;                       // a failure is shown in the notice, not in a box
    QString m_notice;
};

}
