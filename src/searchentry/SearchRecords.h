#pragma once

#include "searchentry/SearchEntry.h"

#include <QString>

/// A search of the Washington Superior Courts as it is kept in an ini file: a section of its own,
/// with the texts as they are written there.
struct SearchRecord
{
    QString Section;
    QString State;
    QString StateAbbr;
    QString CourtName;
    QString SearchType;
    QString LastName;
    QString FirstName;
    QString MI;
    QString Suffix;
    QString BusinessName;
    QString CaseNumber;
    QString Jurisdictions;
    QString CaseTypes;
    QString SearchFromYear;
    QString SearchToYear;
    QString CreateDate; ///< set when the record is saved
    QString CreateTime;
};

/// How many jurisdictions a record names; those beyond it are left out.
constexpr qsizetype mostRecordJurisdictions = 512;

SearchRecord CreateWaINameSearchRecord(const SearchEntry &entry);
SearchRecord CreateWaBNameSearchRecord(const SearchEntry &entry);
SearchRecord CreateWaCaseNumberSearchRecord(const SearchEntry &entry);

/// Writes the keys of a person's, a business's or a number's record, with the present moment. False
/// when not all of them could be written; that is logged.
bool SaveINameRecordToIniFile(const SearchRecord &record, const QString &iniFile);
bool SaveBNameRecordToIniFile(const SearchRecord &record, const QString &iniFile);
bool SaveCaseNoRecordToIniFile(const SearchRecord &record, const QString &iniFile);
