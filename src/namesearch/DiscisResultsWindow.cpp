#include "namesearch/DiscisResultsWindow.h"

#include "controls/MsgBox.h"
#include "controls/ReadOnlyTextBox.h"
#include "tables/ResultListView.h"
#include "namesearch/CaseFromRow.h"
#include "namesearch/SearchCriteria.h"
#include "session/SessionEvents.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

DiscisResultsWindow::DiscisResultsWindow(ResultsWindow window, QWidget *parent)
    : NameResultsWindow(window, parent)
{
    lblState = u"WA"_s;
}

void DiscisResultsWindow::connectButtons(ReadOnlyTextBox *readOnlyBox, QPushButton *closeResults,
                                         QPushButton *createSearch, QPushButton *printMoreInfo)
{
    connect(readOnlyBox, &ReadOnlyTextBox::EditRefused, this, [this] {
        MsgBox(this, u"This field is Read-Only. Editing not allowed."_s,
               u"Halvane - Information .."_s);
    });
    connect(closeResults, &QPushButton::clicked, this, [this] { Unload(UnloadMode::Code); });
    connect(createSearch, &QPushButton::clicked, &SessionEvents::Of(),
            &SessionEvents::SearchFormWanted);
    connect(printMoreInfo, &QPushButton::clicked, this,
            [this] { MsgBox(this, u"Coming Soon .."_s); });
}

void DiscisResultsWindow::InitListView()
{
    // Not where typing is refused.
    List()->setFocus();
    List()->SetColumns(ListColumnsOf(Kind()));
}

void DiscisResultsWindow::ShowSearchCriteria(int lineIndex)
{
    const SearchCriteria criteria = DiscisCriteria(lboxQueue.List(lineIndex), lblCourtCounty());
    SetNameVal(criteria.Name);
    setWindowTitle(criteria.Caption);
}

void DiscisResultsWindow::AddDiscisRow(const QString &row)
{
    AddParsedRow(row, Kind());
}

void DiscisResultsWindow::AddRow(const QString &row)
{
    AddDiscisRow(row);
}

CaseFromRow DiscisResultsWindow::CaseOf(const QStringList &cells) const
{
    return DiscisCaseOfRow(cells, Kind(), CaseTypeOfRequest(lboxQueue.List(0)));
}

void DiscisResultsWindow::SetNameVal(const QString &text)
{
    NameResultsWindow::SetNameVal(text);
    setWindowTitle(u"Name Search Results - "_s + text);
}

void DiscisResultsWindow::SetCourtCounty(const QString &text)
{
    courtCounty->setText(text);
}

QString DiscisResultsWindow::lblCourtCounty() const
{
    return courtCounty->text();
}
