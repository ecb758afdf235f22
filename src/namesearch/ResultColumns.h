#pragma once

#include "records/ResultsRecord.h"

#include <QString>
#include <QStringView>

#include <span>

/// The kind of list for a search of frmNameSearchResults: `state` is a value of lblState.
ResultKind ResultKindOf(const QString &state, bool indexSearch, bool bankruptcy);

/// The name under which the widths of such a list are remembered: it never changes.
QString ResultKindName(ResultKind kind);

/// A column with its width in twips.
struct ResultColumn
{
    QStringView header;
    int width;
};

std::span<const ResultColumn> ResultColumnsOf(ResultKind kind);

/// The one column whose cells are centred.
constexpr QStringView centredColumn = u"Date Filed";

/// Idaho's columns 2 and 5 (counted from 1) open narrow and take these widths with the first row.
constexpr int idahoWideColumn2 = 1700;
constexpr int idahoWideColumn5 = 1200;
