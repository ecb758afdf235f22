#include "prefs/frmNameSearchResultsHelp.h"

#include "prefs/HelpTexts.h"

namespace {
constexpr HelpWindowLook look{u"frmNameSearchResultsHelp", u"Halvane - Help", u"txtHelp",
                              u"Command1", QSize(620, 520)};
} // namespace

frmNameSearchResultsHelp::frmNameSearchResultsHelp(QWidget *parent) : HelpWindow(look, parent)
{
    ShowHelpText({}, NameSearchResultsHelpText());
}
