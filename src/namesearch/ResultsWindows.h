#pragma once

#include "namesearch/Replies.h"

#include <QStringView>

/// The windows that show the results of a name search.
enum class ResultsWindow {
    Name,          ///< frmNameSearchResults
    DiscisCivil,   ///< frmDiscisNameResults
    DiscisNonCivil ///< frmDiscisNCNameResults
};

/// How the three windows differ while they do the same work.
struct ResultsWindowRow
{
    ResultsWindow window;
    QStringView sortColumn;        ///< SortColumnName after load
    QStringView countLabel;        ///< what Label3 says before the number of rows
    QStringView working;           ///< lblStatus during the search
    QStringView connectionLostLog; ///< empty: the log line that the outcome has everywhere
    ReplyRules replies;
    bool progressAsItIs;  ///< a progress reply keeps its "~"; otherwise each becomes a blank
    bool logsStatus;      ///< the log shows the status number before each reply
    bool logsQueueLength; ///< the log begins with the number of request lines
};

const ResultsWindowRow &ResultsWindowRowOf(ResultsWindow window);
