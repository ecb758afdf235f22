#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Requests and replies that several tests of the running court use.

/// The reply that says nothing.
inline const QStringList justEnd{QStringLiteral("EOF~")};

/// The search of the guide, and the whole reply to it.
inline const QString guideSearch =
    QStringLiteral("WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,Criminal,¦¦¦");
inline const QByteArray guideReply = "|SEARCHING~King~County~Superior~Court~..|"
                                     "|SEARCHING~the~index~of~names~..|"
                                     "|SEARCHING~the~index~of~cases~..|"
                                     "|SMITH, JOHN Q~94-1-00042-1~11/07/1994~Malicious Mischief~"
                                     "WA Superior Ct King County~Defendant~|"
                                     "|SMITH, JOHN Q~98-2-00017-7~03/16/1998~Tort - Motor Vehicle~"
                                     "WA Superior Ct King County~Plaintiff~|"
                                     "|EOF~|";

inline QString SearchFor(const QString &last, const QString &first = QString())
{
    return QStringLiteral("WASUP¦SEARCH¦%1¦%2¦¦¦King,¦Civil,¦¦¦").arg(last, first);
}

inline qsizetype CountRows(const QStringList &tokens)
{
    qsizetype rows = 0;
    for (const QString &token : tokens)
        rows += token.count(u'~') == 6 ? 1 : 0;
    return rows;
}
