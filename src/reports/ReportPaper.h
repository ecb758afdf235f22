#pragma once

#include "reports/Paper.h"

#include <QLocale>
#include <QObject>

/// The paper that people print letters on there: Letter in most of the Americas, A4 elsewhere.
Paper PaperOfTerritory(QLocale::Territory territory);

/// How support staff know a sheet from the log: 1 for Letter, 9 for A4, 256 for any other; and 1
/// for upright, 2 for sideways.
int PaperNumber(const Paper &paper);
int OrientationNumber(const Paper &paper);

/// The paper of all reports of the session.
class ReportPaper : public QObject
{
    Q_OBJECT
public:
    static ReportPaper &Of();

    Paper Current() const;
    void Set(const Paper &paper);

Q_SIGNALS:
    /// Another sheet is in force: what is laid out already has to be laid out again.
    void Changed();
};
