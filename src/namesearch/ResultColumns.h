#pragma once

#include <QString>
#include <QStringView>

#include <span>

/// The kinds of result list, each with its own columns and row fields.
enum class ResultKind {
    Superior, ///< Oregon too
    Idaho,
    Bankruptcy,
    Index,
    DiscisCivil,
    DiscisStatewide, ///< non-civil cases, "SNCI"
    DiscisAddresses, ///< non-civil cases of defendants with addresses, "DND"
    NamesStatewide,  ///< the names that came more than once, "SNCI"
    NamesAddresses   ///< the same, "DND"
};

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
