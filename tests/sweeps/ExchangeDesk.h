#pragma once

#include "casedetails/CaseDesk.h"

#include <optional>

class ExchangeRun;

/// The user at whose desk each exchange of the sweep is made, and the windows that he opens.
class ExchangeDesk : public CaseTest
{
public:
    using CaseTest::Bankruptcy;
    using CaseTest::Begin;
    using CaseTest::CaptionsOf;
    using CaseTest::CellsOf;
    using CaseTest::Civil;
    using CaseTest::ClickTab;
    using CaseTest::Finished;
    using CaseTest::NonCivil;
    using CaseTest::OfState;
    using CaseTest::Superior;
    using CaseTest::SuperiorSummary;

    ExchangeDesk();
    /// Another desk in place of this one, which is gone before: each has the program for itself.
    static void Renew(std::unique_ptr<ExchangeDesk> &desk);

    /// This tab alone is fetched at once, in every kind of case; none for "".
    void FetchOnly(const QString &caption);
    /// Everything is as it is before an exchange: no link, no log, a morning.
    void BeginCase();
    /// What is not as it has to be behind one, "" when all is: the turn was given back, the next
    /// search has its own rows, over this link or a new one, and the window can be closed.
    QString EndCase(ExchangeRun &run);
    SearchDesk &User() const { return *desk; }
    /// Which of these messages the log holds, as often as it does, in its order.
    QStringList Logged(const QStringList &messages) const;

private:
    std::optional<QString> fetched; ///< each write of a setting replaces a file
};

/// What the log says when a wait finds the link gone.
inline const QString LinkLostLine =
    u"Connection Lost While Waiting for Response. Exiting Process ReadResponse()"_s;
