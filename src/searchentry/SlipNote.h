#pragma once

#include "searchentry/SearchEntry.h"
#include "searchentry/Slips.h"

#include <QObject>
#include <QTimer>

#include <functional>

struct SearchControls;

/// The note beside the buttons of the search form about what is hardly meant. It stands in nobody's
/// way: whatever may be started can be started all the same.
class SlipNote : public QObject
{
public:
    /// Works on the controls; `look` gives what there is to say about what stands on the form.
    SlipNote(SearchControls &controls, std::function<QString()> look);

    /// Something is entered or chosen otherwise.
    void LookAgain() { timer.start(); }
    /// A search of this entry has been started.
    void Started(const SearchEntry &entry);

private:
    SearchControls &ui;
    QTimer timer; ///< one look for all that changes together
    RepeatedStart repeated;
};
