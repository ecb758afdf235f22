#include "namesearch/frmDiscisNameResults.h"

#include "session/SessionEvents.h"
#include "ui_frmDiscisNameResults.h"

frmDiscisNameResults::frmDiscisNameResults(QWidget *parent)
    : DiscisResultsWindow(new CivilSearch, parent), ui(std::make_unique<Ui::frmDiscisNameResults>())
{
    ui->setupUi(this);
    connect(ui->lblHelp, &QPushButton::clicked, &SessionEvents::Of(),
            &SessionEvents::ResultsHelpWanted);
    UseDiscisControls(*ui);
}

frmDiscisNameResults::~frmDiscisNameResults() = default;
