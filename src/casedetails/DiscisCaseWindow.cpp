#include "casedetails/DiscisCaseWindow.h"

#include <QLabel>

using namespace Qt::StringLiterals;

DiscisCaseWindow::DiscisCaseWindow(QWidget *parent) : CaseWindow(parent)
{
    lblState = u"WA"_s;
}

void DiscisCaseWindow::SetCaseType(const QString &text)
{
    caseType->setText(text);
}

QString DiscisCaseWindow::lblCaseType() const
{
    return caseType->text();
}

void DiscisCaseWindow::SetCaseNo(const QString &text)
{
    caseNo->setText(text);
}

QString DiscisCaseWindow::lblCaseNo() const
{
    return caseNo->text();
}
