#pragma once

#include "namesearch/SearchDesk.h"
#include "searchentry/SearchFormPlaces.h"
#include "searchentry/frmSearchWA.h"

#include <QPointer>

class QAbstractButton;
class QComboBox;
class QLineEdit;

/// A user at the search form: finds controls by their names, clicks them, and says what differs
/// from what the form should show.
class SearchFormUser
{
public:
    explicit SearchFormUser(bool shown = true);
    ~SearchFormUser();

    /// "" when every announced box came and no other did.
    QString Complaints() const { return Desk.Boxes.Complaints(); }

    template<typename Widget = QWidget>
    Widget *Find(const char *name) const
    {
        return Child<Widget>(Form, name);
    }
    QAbstractButton *Button(const QByteArray &name) const;
    QLineEdit *Box(int index) const;
    QLineEdit *BatchBox(int index) const;
    QComboBox *BatchCounty(int index) const;

    /// A mouse click in the middle of a control's text, or on a row of the list of jurisdictions.
    void Click(const QByteArray &name) const;
    /// The same without a mouse, for walks of thousands of clicks.
    void Press(const QByteArray &name) const;
    void ClickRow(const char *list, int row) const;
    void DoubleClickRow(const char *list, int row) const;
    /// Clicks until the form is there, and back to the first scope on the way.
    void GoTo(const Place &place) const;

    QStringList Items(const char *list) const;
    QStringList ComboItems(const char *combo) const;
    QStringList Ticked(const char *list) const;
    QString Text(const char *name) const { return TextOf(Form, name); }

    /// What is seen of `comingAndGoing`, sorted.
    QList<QByteArray> Shown() const;
    /// How the form differs from what it should be at this place; "" when it does not.
    QString Differences(const Place &place, bool templateApplied = false) const;
    /// The counties of a court family, read from its data file.
    QStringList CountiesOf(int court) const;

    SearchDesk Desk;
    QPointer<frmSearchWA> Form;

private:
    QString globalDifferences(const Place &place) const;
    QString textDifferences(const Place &place, bool templateApplied) const;
    QString listDifferences(const Place &place) const;

    mutable std::array<QStringList, 5> counties;
};
