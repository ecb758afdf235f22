#include "namesearch/frmDiscisNameResults.h"

#include "session/SessionEvents.h"
#include "ui_frmDiscisNameResults.h"

using namespace Qt::StringLiterals;

frmDiscisNameResults::frmDiscisNameResults(QWidget *parent)
    : DiscisResultsWindow(ResultsWindow::DiscisCivil, parent),
      ui(std::make_unique<Ui::frmDiscisNameResults>())
{
    ui->setupUi(this);
    connect(ui->lblHelp, &QPushButton::clicked, &SessionEvents::Of(),
            &SessionEvents::ResultsHelpWanted);
    UseDiscisControls(*ui);
}

frmDiscisNameResults::~frmDiscisNameResults() = default;

ResultKind frmDiscisNameResults::Kind() const
{
    return ResultKind::DiscisCivil;
}

void frmDiscisNameResults::ShowSearchCriteria(int lineIndex)
{
    DiscisResultsWindow::ShowSearchCriteria(lineIndex);
    SetCaseTypeVals(u"CIVIL  CV"_s);
}
