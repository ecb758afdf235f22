#pragma once

#include "namesearch/DiscisSearch.h"
#include "namesearch/NameResultsWindow.h"

class ReadOnlyTextBox;

/// What the results windows of the District and Municipal Courts have in common, besides what all
/// results windows have.
class DiscisResultsWindow : public NameResultsWindow
{
    Q_OBJECT
public:
    void SetCourtCounty(const QString &text)
    {
        Search().SetText(&ResultsRecord::lblCourtCounty, text);
    }
    QString lblCourtCounty() const { return Search().Record.lblCourtCounty; }

protected:
    using NameResultsWindow::NameResultsWindow;

    /// UseControls, with the controls that only these windows have.
    template<class Controls>
    void UseDiscisControls(const Controls &ui)
    {
        courtCounty = ui.lblCourtCounty;
        // The nine characters of a case number fit their column only so.
        ui.listview1->UseSmallText();
        connectButtons(ui.txtCountyList, ui.cmdSearchResults_1, ui.cmdSearchResults_3,
                       ui.cmdPrintMoreInfo);
        ConnectReportButtons(ui.cmdSaveResultToFile, ui.cmdEmail);
        UseControls(ui);
    }

    void InitListView() override;
    void ShowStatus() override;

private:
    void connectButtons(ReadOnlyTextBox *readOnlyBox, QPushButton *closeResults,
                        QPushButton *createSearch, QPushButton *printMoreInfo);

    QLabel *courtCounty = nullptr;
};
