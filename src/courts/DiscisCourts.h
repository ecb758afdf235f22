#pragma once

#include <QList>
#include <QString>

/// One court of the District and Municipal catalogue.
struct clsDiscisCourts
{
    QString CourtCity;
    QString CourtName;
    QString CourtCode;
    QString CourtCounty;
    QString CourtType; ///< "Municipal" or "District"
    QString CourtIndex;

    /// How the court reads in a list: its name and, in brackets, its three letters.
    QString ListText() const;
};

/// The catalogue, in the order of its file.
const QList<clsDiscisCourts> &DiscisCourts();

/// The court with this code, nullptr when there is none. Valid until the next load.
const clsDiscisCourts *DiscisCourtByCode(const QString &code);

/// Reads the catalogue anew and answers the number of courts. A line that is no court ends the
/// reading: it is logged, and the courts before it stay.
int LoadDiscisCourts();

/// The number of courts that the window texts speak of, whatever the file says.
constexpr int discisCourtsShown = 173;
