#pragma once

#include "print/player.h"
#include "print/script.h"

// One pass over the open script. Internal to this folder.
namespace vorel {

enum class PlayTarget { Printer, Screen, Email };

class ScriptPass {
public:
    ScriptPass(PlayTarget target, PrintJob &job, PrintScriptFile &script, const std::vector<QString> &table);
    void play();                        // from the script's current line to the end of what the target asks for

private:
    enum class Flow { GoOn, End };
    using Step = Flow (ScriptPass::*)(const QString &line);
    struct Command;
    static Step commandFor(const QString &word);

    Flow print(const QString &line, double share);
    Flow printLeft(const QString &line) { return print(line, 0); }
    Flow printCentre(const QString &line) { return print(line, 0.5); }
    Flow printRight(const QString &line) { return print(line, 1); }
    Flow fontName(const QString &line);
    Flow fontSize(const QString &line);
    Flow fontBold(const QString &line);
    Flow fontUnderline(const QString &line);
    Flow foreColor(const QString &line);
    Flow drawMode(const QString &line);
    Flow drawStyle(const QString &line);
    Flow orientation(const QString &line);
    Flow scaleMode(const QString &line);
    Flow line(const QString &line);
    Flow paintPicture(const QString &line);
    Flow newPage(const QString &line);
    Flow endDoc(const QString &) { return Flow::End; }

    template <class Change> void onFonts(Change change);
    template <class Change> void onDrawing(Change change);
    printer::Page *drawn();             // what is drawn on, nullptr for the mail target
    double placeX(double x) const;
    double placeY(double y) const;
    bool onScreen() const { return m_target == PlayTarget::Screen && m_player.preview(); }
    printer::Page &previewPage() { return m_player.preview()->Page(); }

    PlayTarget m_target;
    PrintJob &m_job;
    PrintPlayer &m_player;
    PrintScriptFile &m_script;
    const std::vector<QString> &m_table;
    printer::Printer &m_printer;
    QString m_font;
    int m_page = 1;                     // that is being printed
};

}
