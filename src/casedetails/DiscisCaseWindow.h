#pragma once

#include "casedetails/CaseWindow.h"

#include <array>
#include <utility>

struct DiscisSummaryView;

/// What the two case windows of the District and Municipal Courts have in common, besides what all
/// case windows have.
class DiscisCaseWindow : public CaseWindow
{
    Q_OBJECT
public:
    void SetCaseType(const QString &text);
    QString lblCaseType() const;
    void SetCaseNo(const QString &text);
    QString lblCaseNo() const;

protected:
    DiscisCaseWindow(CaseKind windowKind, QWidget *parent);

    /// UseControls, with the controls that only these windows have.
    template<class Controls>
    void UseDiscisControls(const Controls &ui)
    {
        caseType = ui.lblCaseType;
        caseNo = ui.lblCaseNo;
        UseControls(ui);
    }
    /// The labels that show the notes of a tab; none is seen before it has something to say.
    void UseNotes(CaseTab tab, QLabel *first, QLabel *second);

    void BeginTick() override;
    void CutTabsToCase() override;
    void ShowNotes(CaseTab tab, const QStringList &notes) override;
    void ShowSummaryResponse() override;
    void ShowSummaryFailure(const QString &reason) override;
    /// The header fields that only one of the two windows has.
    virtual void ShowOwnFields(const DiscisSummaryView &view) = 0;

    static void SetText(QLabel *label, const std::optional<QString> &text);

private:
    QLabel *caseType = nullptr;
    QLabel *caseNo = nullptr;
    std::array<std::pair<QLabel *, QLabel *>, caseTabCount> notesOf;
};
