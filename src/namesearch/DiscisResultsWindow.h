#pragma once

#include "namesearch/NameResultsWindow.h"

class ReadOnlyTextBox;

/// What the results windows of the District and Municipal Courts have in common, besides what all
/// results windows have.
class DiscisResultsWindow : public NameResultsWindow
{
    Q_OBJECT
public:
    void ShowSearchCriteria(int lineIndex) override;

    /// Adds a case of the server to the list. Throws error 9 when it has too few fields.
    void AddDiscisRow(const QString &row);

    /// The name, in its label and in the caption.
    void SetNameVal(const QString &text) override;
    void SetCourtCounty(const QString &text);
    QString lblCourtCounty() const;

protected:
    DiscisResultsWindow(ResultsWindow window, QWidget *parent);

    /// UseControls, with the controls that only these windows have.
    template<class Controls>
    void UseDiscisControls(const Controls &ui)
    {
        courtCounty = ui.lblCourtCounty;
        // The nine characters of a case number fit their column only so.
        ui.listview1->UseSmallText();
        connectButtons(ui.txtCountyList, ui.cmdSearchResults_1, ui.cmdSearchResults_3,
                       ui.cmdPrintMoreInfo);
        UseControls(ui);
    }

    /// The kind of cases in the list.
    virtual ResultKind Kind() const = 0;

    void InitListView() override;
    void AddRow(const QString &row) override;
    CaseFromRow CaseOf(const QStringList &cells) const override;

private:
    void connectButtons(ReadOnlyTextBox *readOnlyBox, QPushButton *closeResults,
                        QPushButton *createSearch, QPushButton *printMoreInfo);

    QLabel *courtCounty = nullptr;
};
