#pragma once

#include "searchentry/RecentEntries.h"

#include <QObject>

struct FormState;
struct SearchControls;

/// The recent entries on the search form: a box of them, and what the first box offers as one
/// types.
class RecentsOnForm : public QObject
{
public:
    /// Works on the controls, and goes by the state that the form is in.
    RecentsOnForm(SearchControls &controls, const FormState &place);

    /// Fills the box of the recent entries of a search type.
    void Load(const QString &searchType);
    /// Loads those of the type that is being entered, and shows them as Show does.
    void ShowOfType();
    /// Shows the entries, when they are wanted at all, and lets the first box offer them as one
    /// types.
    void Show();
    /// Puts other entries into the box of their type. They are seen when Show is called.
    void Fill(const ShownRecents &entries);

    const ShownRecents &Shown() const { return recents; }

private:
    void offerWhileTyping(const QStringList &entries);
    void use(const QString &text);

    SearchControls &ui;
    const FormState &state;
    ShownRecents recents; ///< of the type that is being entered
};
