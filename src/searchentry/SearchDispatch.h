#pragma once

#include "jobs/ListBox.h"
#include "searchentry/SearchEntry.h"

class CaseWindow;
class DiscisResultsWindow;
class frmNameSearchResults;
struct CaseStart;
struct RequestContext;
struct ShownRecents;

// From checked entries to windows that wait for their turn. Each window gets everything it needs
// before it is shown: its request lines, its texts, the client accounting code and its key, which
// stands at the end of the turn queue then.

/// How a dispatch ended.
enum class DispatchResult {
    Waiting,    ///< the windows are shown and wait for their turns
    NoRequests, ///< after leaving out what no court could answer, nothing was left to ask
    Failed,     ///< the entries make no search
    Nothing     ///< there was nothing to search
};

/// Starts the search. `code` is the client accounting code, or empty. What was searched for goes to
/// the recent entries, of which `recents` are those on the form. A window that could not be
/// completed is unloaded again. Throws what goes wrong on the way.
DispatchResult DispatchSearch(const SearchEntry &entry, const QString &code, ShownRecents &recents);

/// One case of a batch; `autoPrint` prints it as soon as it is there.
void LaunchBatchCase(CaseStart start, const QString &code, bool autoPrint);

/// Fills the window's request list. True when the list may be searched.
bool LoadNameSearchRequests(frmNameSearchResults &form, const SearchEntry &entry,
                            const RequestContext &context);

/// Fills the window's request list and labels. False when it is not known what to search.
bool LoadDiscisNameRequests(DiscisResultsWindow &form, const SearchEntry &entry);

/// Fills what a District or Municipal case window shows and asks for. False when it is not known
/// which court or kind of case is meant. `code` is the client accounting code, as below.
bool LoadDiscisCaseNumberFields(CaseWindow &form, const SearchEntry &entry, const QString &code);

/// Puts the one line of a bankruptcy court, 0 to 3, into the list. True when there is one.
bool LoadBkSearchParams(ListBox &list, const SearchEntry &entry, int courtIndex);

/// Fills a case window of a state court. False, and a line in the log, when that fails.
bool DoCaseNumberSearch(CaseWindow &form, const SearchEntry &entry, const QString &code);
