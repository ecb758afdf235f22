#pragma once

#include "namesearch/DiscisResultsWindow.h"

#include <memory>

namespace Ui {
class frmDiscisNCNameResults;
}

/// The results of a non-civil name search in the District and Municipal Courts.
///
/// The server may send people instead of cases, when several have the name. Choosing among them
/// comes with a later version: their rows stay out of the list of cases, and the completed search
/// says that there were some.
class frmDiscisNCNameResults : public DiscisResultsWindow
{
    Q_OBJECT
public:
    /// What is searched for is Global.DiscisDndSearch's to say, which is cleared by it.
    explicit frmDiscisNCNameResults(QWidget *parent = nullptr);
    ~frmDiscisNCNameResults() override;

    void InitListView() override;
    /// ShowHeaderIcon, for the list of names.
    void ShowHeaderIconNC(int column, Qt::SortOrder order, bool show);

    QString lblDNDorSNCI;    ///< "SNCI", or "DND" for defendants with addresses
    bool DupesFound = false; ///< the server has sent people

protected:
    ResultKind Kind() const override;
    void AddRow(const QString &row) override;
    void ShowCompletion() override;

private:
    const std::unique_ptr<Ui::frmDiscisNCNameResults> ui;
    int namesFound = 0;
};
