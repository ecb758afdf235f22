#pragma once

#include "records/CaseTabs.h"

#include <QString>
#include <QStringList>

using namespace Qt::StringLiterals;

/// What the courts are asked for, and answer, in tests of cases.
struct CaseLines
{
    /// The tabs of these captions are fetched at once; all others wait to be asked for.
    static void FetchAtOnce(const QString &section, const QStringList &captions);

    /// The lines of a Summary of the Superior Courts, without the end mark.
    static QStringList SuperiorSummary();
    /// A table of two columns in the form of the Superior Courts, with its end mark.
    static QStringList GridDef(const QStringList &rows);
    /// The same in the form of the other states' courts.
    static QStringList TableForm(const QStringList &rows);
};

/// A request line of the Superior Courts for the case that CaseTest and CaseJobTest open.
QString SuperiorLine(const QString &word, const QString &number = QStringLiteral("02-1-00123-4"));
