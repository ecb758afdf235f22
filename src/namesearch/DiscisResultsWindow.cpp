#include "namesearch/DiscisResultsWindow.h"

#include "controls/MsgBox.h"
#include "controls/ReadOnlyTextBox.h"
#include "session/SessionEvents.h"
#include "tables/ResultListView.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

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
    List()->SetColumns(ListColumnsOf(Search().Record.Kind));
}

void DiscisResultsWindow::ShowStatus()
{
    NameResultsWindow::ShowStatus();
    courtCounty->setText(lblCourtCounty());
}
