#include "casedetails/PrintingDesk.h"

#include <QDialog>
#include <QPointer>

namespace {
QStringList textsOf(const Report &report, BlockKind kind)
{
    QStringList texts;
    for (const ReportBlock &block : report.Blocks) {
        if (block.Kind == kind)
            texts.append(block.Cells);
    }
    return texts;
}
} // namespace

void PrintingTest::init()
{
    OnDemandTest::init();
    seen = {};
    NoteReports(&seen);
}

void PrintingTest::AnswerPrintManager(const char *button, const std::function<void(QDialog *)> &act)
{
    desk->Boxes.ExpectDialog(u"dlgPrintMgr"_s, [act, button](QDialog *dialog) {
        const QPointer<QDialog> stillOpen(dialog);
        act(dialog);
        if (stillOpen && stillOpen->isVisible())
            Click(dialog, button);
    });
}

QStringList PrintingTest::TabsOfReport(const Report &report)
{
    return textsOf(report, BlockKind::Heading);
}

QStringList PrintingTest::WarningsOf(const Report &report)
{
    return textsOf(report, BlockKind::Warning);
}
