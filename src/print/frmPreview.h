#pragma once

#include "platform/controls/form.h"
#include "print/player.h"

class QLabel;
class QLineEdit;
class QScrollBar;

namespace vorel {

class PreviewPageBox;

// The preview: a report's pages one at a time, with what can be done with them. Modal.
class frmPreview : public controls::Form, public PreviewScreen {
    Q_OBJECT
public:
    explicit frmPreview(PrintJob &job, QWidget *parent = nullptr);
    ~frmPreview() override;
    static void install();              // reports open one of these from here on
    // What shows the mail screen with the picture of the page; without it there is no cmdEmail.
    static void setMailer(std::function<void(const QImage &page)> mailer);

    printer::Page &Page() override;
    double ScreenWidth() const override;
    double ScreenHeight() const override;
    double ControlHeight() const override;
    void PageSized() override;
    void ClearPage() override;
    void setPageLabel(const QString &text) override;
    void ShowPage() override;
    void ShowModal() override;

protected:
    void Unload() override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildStrip();
    void addKeys();
    void turnTo(int index);
    void zoomTo(double zoom);           // the middle of what is shown stays in the middle
    void fitPage();
    void restoreZoom();                 // the one that the last preview was closed with
    void keepZoom();
    void print();
    void showChosenPages();
    void showPageNumber();
    void cmdSetup_Click();
    void cmdEmail_Click();
    bool passToScrollBar(const QObject *watched, const QKeyEvent *event);
    bool turnAtEnd(int direction);      // beyond the page's end lies the next one
    void LayoutPreview();
    void placePage();

    PrintJob &m_job;
    PrintPlayer &m_player;
    bool m_isFitted = false;            // the whole page stays on show, whatever the window's size
    QString m_keptZoom;
    QWidget *PNL_Control = nullptr;
    QWidget *Frame = nullptr;
    PreviewPageBox *m_page = nullptr;
    QScrollBar *HScroll1 = nullptr;
    QScrollBar *VScroll1 = nullptr;
    QLineEdit *txtPage = nullptr;
    QLabel *LBL_Page = nullptr;
    QLabel *m_chosen = nullptr;         // what Print prints, where that is not all
    QAbstractButton *cmdPrint = nullptr;
    std::vector<QAbstractButton *> CMD_Move;
};

}
