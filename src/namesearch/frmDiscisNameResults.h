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

    /// Adds a case of the server to the list. Throws error 9 when it has too few fields.
    void AddDiscisRow(const QString &row) { Search().AddRow(row); }

private:
    const std::unique_ptr<Ui::frmDiscisNameResults> ui;
};
