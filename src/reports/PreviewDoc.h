#pragma once

#include "controls/FormWindow.h"
#include "reports/ReportPainter.h"
#include "reports/ReportPrinter.h"

#include <QElapsedTimer>
#include <QList>
#include <QPointer>
#include <QTimer>

#include <memory>

class QPrinter;
class TurnHold;

namespace Ui {
class PreviewDoc;
}

/// The preview of a report: its pages on the screen, and the ways from there to a printer or into a
/// PDF. The first page is there at once; the others are laid out while the user looks at it.
///
/// It belongs to the window whose report it shows, and goes with it. Closing it only puts it away.
/// What is being printed or saved then goes on to its end: the report holds all that it says, and
/// the window is not needed for it.
class PreviewDoc : public FormWindow
{
    Q_OBJECT
public:
    /// `owner` is the window that has reports, or a widget in it; nullptr for none.
    explicit PreviewDoc(QWidget *owner);
    ~PreviewDoc() override;

    /// The preview of a window, made when it is asked for first; kept as the window's property
    /// `preview` until either goes.
    static PreviewDoc *Of(QWidget *owner);

    /// Shows a report, in the place of one that is shown already. It returns at once.
    ///
    /// Over a modal dialog the preview is modal itself, since it could not be reached otherwise.
    void ShowReport(const Report &report);

    /// Prints a report on the default printer without a question and without coming into sight. It
    /// returns at once; PrintingOver tells of the end. Several come one after the other. A report
    /// that cannot be printed is shown, with the reason.
    void PrintAndClose(const Report &report);

    QTimer *tmrPrepare; ///< each tick lays out pages for some milliseconds

Q_SIGNALS:
    /// A report that PrintAndClose was called for is printed, or will not be.
    void PrintingOver(bool printed);

protected:
    void Unloading() override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    enum class Work { None, Printing, Saving };
    class WorkScope;

    void connectView();
    void follow();
    void putAway();
    void come();
    void layOut(const Report &report);
    void layOutAgain();
    void prepare();
    void stopPreparing();
    void showPages();
    void showView();
    void showCommands();
    void showNote(const QString &note, bool canCancel);

    void cmdCancel_Click();
    void cmdPrint_Click();
    void cmdSavePdf_Click();
    void savePdf(const Report &report, const QString &path);
    PrintEnd print(QPrinter &printer, std::shared_ptr<PageLayout> pages);
    void printWaiting();
    bool printByDefault(const Report &report);
    bool goesOn(const QString &what, int page);

    const std::unique_ptr<Ui::PreviewDoc> ui;
    const QPointer<QWidget> owner;
    const ReportPainter painter;
    std::shared_ptr<PageLayout> layout;
    QList<Report> waiting;              ///< for the default printer
    std::unique_ptr<TurnHold> turnHold; ///< while something waits or is printed without a question
    QElapsedTimer sinceYield;
    Work work = Work::None;
    bool cancelled = false; ///< the pages that were to be prepared
    bool stopWork = false;
    QString failure; ///< why the report is here that should be on paper
};
