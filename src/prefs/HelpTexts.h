#pragma once

#include "core/HelpTopic.h"

#include <QStringView>

#include <span>

/// One help text. Its lines are paragraphs; one that begins with "= " is a heading, one that begins
/// with "• " a point of a list, and empty ones keep groups apart in the source only.
struct HelpText
{
    QStringView Label; ///< as the list of topics has it
    QStringView Text;
};

/// The texts of the search help: those of HelpTopic in its order, and behind them what belongs to
/// no one step of the form.
std::span<const HelpText> SearchHelpTexts();

QStringView CaseDetailsHelpText();
QStringView NameSearchResultsHelpText();
