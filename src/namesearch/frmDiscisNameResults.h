#pragma once

#include "namesearch/DiscisResultsWindow.h"

#include <memory>

namespace Ui {
class frmDiscisNameResults;
}

/// The results of a civil name search in the District and Municipal Courts.
class frmDiscisNameResults : public DiscisResultsWindow
{
    Q_OBJECT
public:
    explicit frmDiscisNameResults(QWidget *parent = nullptr);
    ~frmDiscisNameResults() override;

    void ShowSearchCriteria(int lineIndex) override;

protected:
    ResultKind Kind() const override;

private:
    const std::unique_ptr<Ui::frmDiscisNameResults> ui;
};
