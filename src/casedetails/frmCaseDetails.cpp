#include "casedetails/frmCaseDetails.h"

#include "casedetails/CaseLinks.h"
#include "casedetails/DocumentList.h"
#include "casedetails/OpenCases.h"
#include "casedetails/StateCaseJob.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "core/Windows1252.h"
#include "documents/frmAllDocuments.h"
#include "documents/frmDocTransfer.h"
#include "session/LoginOffer.h"
#include "session/NewWindow.h"
#include "tables/RowFilter.h"
#include "tables/TableTools.h"
#include "ui_frmCaseDetails.h"

#include <QMenu>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// The code that a further retrieval is billed to: the one in force, which the user may have
/// changed since the case was opened.
QString codeInForce(const QString &codeOfCase)
{
    const QString code = FoldToUpper(TrimBlanks(Global.ClientAcctgCode));
    return code.isEmpty() ? codeOfCase : code;
}

/// Whether a search may begin; asks for the login otherwise.
bool mayBegin(QWidget *window)
{
    if (Global.bLoggedIn)
        return true;
    if (OfferLogin(window))
        ShowLoginModally();
    return Global.bLoggedIn;
}

void billToCodeInForce(DocumentStart &document)
{
    document.ClientMatterText = codeInForce(document.ClientMatterText);
}
void billToCodeInForce(QList<DocumentStart> &documents)
{
    for (DocumentStart &document : documents)
        billToCodeInForce(document);
}

/// Opens a case that another one names.
void openLinked(QWidget *window, CaseStart start)
{
    // The session may have ended under the question about a case that is open already.
    if (!MayOpenCase(window, start) || !mayBegin(window))
        return;
    start.ClientAcctgCode = codeInForce(start.ClientAcctgCode);
    NewWindow form(new frmCaseDetails);
    form->Take(start);
    form.GiveKey();
    form.Launch();
}
} // namespace

frmCaseDetails::frmCaseDetails(QWidget *parent)
    : CaseWindow(new StateCaseJob, parent), List1(Record().List1),
      ui(std::make_unique<Ui::frmCaseDetails>())
{
    ui->setupUi(this);
    UseTab(CaseTab::Summary, ui->frameTabs_0, ui->GridSummary);
    UseTab(CaseTab::Names, ui->frameTabs_1, ui->GridNames);
    UseTab(CaseTab::Docket, ui->frameTabs_2, ui->GridDocket);
    UseTab(CaseTab::Accounting, ui->frameTabs_3, ui->GridAcctg);
    UseTab(CaseTab::Judgments, ui->frameTabs_4, ui->GridJudgment);
    UseTab(CaseTab::Charges, ui->frameTabs_5, ui->GridCharges);
    UseTab(CaseTab::Sentence, ui->frameTabs_6, ui->GridSentence);
    UseTab(CaseTab::Schedule, ui->frameTabs_7, ui->GridSched);
    UseTab(CaseTab::Documents, ui->frameTabs_9, ui->GridDocuments);
    UseTab(CaseTab::Finance, ui->frameTabs_10, ui->gridFinance);
    UseCaseTitle(ui->lblCaseTitle);
    UseControls(*ui);
    connect(ui->GridSummary, &FlexGrid::RowActivated, this, &frmCaseDetails::GridSummary_DblClick);
    connect(ui->GridJudgment, &FlexGrid::RowActivated, this,
            &frmCaseDetails::GridJudgment_DblClick);
    connect(ui->GridDocuments, &FlexGrid::RowActivated, this,
            &frmCaseDetails::GridDocuments_DblClick);
    makeDocumentMenu();
}

frmCaseDetails::~frmCaseDetails() = default;

void frmCaseDetails::ShowHeader()
{
    CaseWindow::ShowHeader();
    ui->lblTopFrameCaseType->setText(Record().lblTopFrameCaseType);
    ui->Label1_2->setText(Record().MultipleLabel);
    ui->Label1_2->setVisible(!Record().MultipleLabel.isEmpty());
}

void frmCaseDetails::GridSummary_DblClick(int row)
{
    const RunScope scope(this);
    const std::optional<CaseStart> listed = ListedCase(Record(), row);
    const QString associated = AssociatedCase(Record(), row);
    if ((!listed && associated.isEmpty()) || !mayBegin(this))
        return;
    if (listed)
        openLinked(this, *listed);
    else
        DoCaseNumberSearchAss(associated);
}

void frmCaseDetails::GridJudgment_DblClick(int row)
{
    const RunScope scope(this);
    const QString number = CaseOfJudgment(Record(), row);
    if (!number.isEmpty() && mayBegin(this))
        DoCaseNumberSearchJudgment(number);
}

bool frmCaseDetails::DoCaseNumberSearchAss(const QString &number)
{
    return openCaseOfCounty(number, u"DoCaseNumberSearchAss"_s);
}

bool frmCaseDetails::DoCaseNumberSearchJudgment(const QString &number)
{
    return openCaseOfCounty(number, u"DoCaseNumberSearchJudgment"_s);
}

bool frmCaseDetails::openCaseOfCounty(const QString &number, const QString &procedure)
{
    try {
        openLinked(this, CaseOfCounty(Record(), number));
        return true;
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"Error Executing Case Number Search: frmCaseDetails::"_s + procedure
                     + u"(): Error: "_s + error.Description());
        return false;
    }
}

/// The commands for documents stand ahead of those that every table has.
void frmCaseDetails::makeDocumentMenu()
{
    QMenu *menu = ui->GridDocuments->Tools()->Menu();
    QAction *first = menu->actions().value(0);
    const auto add = [menu, first](const QString &name, const QString &text) {
        auto *action = new QAction(text, menu);
        action->setObjectName(name);
        menu->insertAction(first, action);
        return action;
    };
    retrieveDocument = add(u"mnuDocRetrieve"_s, u"Retrieve &Document"_s);
    retrieveAllDocuments = add(u"mnuDocRetrieveAll"_s, u"Retrieve &All Documents .."_s);
    menu->insertSeparator(first);
    connect(menu, &QMenu::aboutToShow, this, &frmCaseDetails::offerDocuments);
    connect(retrieveDocument, &QAction::triggered, this, &frmCaseDetails::retrieveChosen);
    connect(retrieveAllDocuments, &QAction::triggered, this, &frmCaseDetails::retrieveAll);
}

int frmCaseDetails::chosenDocumentRow() const
{
    return ui->GridDocuments->Tools()->Filter()->ChosenRow() + 1;
}

QList<DocumentStart> frmCaseDetails::shownDocuments() const
{
    QList<int> rows = ui->GridDocuments->Tools()->Filter()->ShownRows();
    for (int &row : rows)
        ++row;
    return DocumentsOfRows(Record(), rows);
}

void frmCaseDetails::offerDocuments()
{
    const QList<DocumentStart> shown = shownDocuments();
    retrieveDocument->setEnabled(DocumentOfRow(Record(), chosenDocumentRow()).has_value());
    retrieveAllDocuments->setEnabled(offersAll(shown));
}

/// All are offered of a whole list alone: what the folder then says of them would be taken for all
/// that there are.
bool frmCaseDetails::offersAll(const QList<DocumentStart> &shown) const
{
    return Record().Tab(CaseTab::Documents).TabDone
           && std::any_of(shown.begin(), shown.end(), IsRetrievable);
}

/// The row is read first: when the login is through, another list may stand in the place of the one
/// that was clicked.
void frmCaseDetails::GridDocuments_DblClick(int row)
{
    const RunScope scope(this);
    std::optional<DocumentStart> document = DocumentOfRow(Record(), row);
    if (!mayBegin(this) || !document)
        return;
    billToCodeInForce(*document);
    retrieve<frmDocTransfer>(*document);
}

void frmCaseDetails::retrieveChosen()
{
    if (const int row = chosenDocumentRow(); row > 0)
        GridDocuments_DblClick(row);
}

void frmCaseDetails::retrieveAll()
{
    const RunScope scope(this);
    QList<DocumentStart> shown = shownDocuments();
    if (!offersAll(shown) || !mayBegin(this))
        return;
    billToCodeInForce(shown);
    if (!frmAllDocuments::GoOnWith(shown))
        retrieve<frmAllDocuments>(shown);
}

template<class Transfer, class Start>
void frmCaseDetails::retrieve(const Start &start)
{
    try {
        NewWindow form(new Transfer);
        form->Take(start);
        form.GiveKey();
        form.Launch();
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"Error Starting Document Retrieval: frmCaseDetails::retrieve(): Error: "_s
                     + error.Description());
    }
}
