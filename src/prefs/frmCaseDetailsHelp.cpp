#include "prefs/frmCaseDetailsHelp.h"

#include "prefs/HelpTexts.h"

namespace {
constexpr HelpWindowLook look{u"frmCaseDetailsHelp", u"Halvane - Case Details Help", u"txtHelp",
                              u"cmdClose", QSize(620, 520)};
} // namespace

frmCaseDetailsHelp::frmCaseDetailsHelp(QWidget *parent) : HelpWindow(look, parent)
{
    ShowHelpText({}, CaseDetailsHelpText());
}
