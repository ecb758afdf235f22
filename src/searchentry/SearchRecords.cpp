#include "searchentry/SearchRecords.h"

#include "core/CSetting.h"
#include "core/Clock.h"
#include "core/Log.h"
#include "core/TextUtilities.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {
/// One key of a record, and in which kinds of record it stands.
struct RecordKey
{
    QStringView key;
    QString SearchRecord::*value;
    bool person;
    bool business;
    bool number;
};
constexpr std::array<RecordKey, 16> recordKeys{{
    {u"State", &SearchRecord::State, true, true, true},
    {u"StateAbbr", &SearchRecord::StateAbbr, true, true, true},
    {u"CourtName", &SearchRecord::CourtName, true, true, true},
    {u"SearchType", &SearchRecord::SearchType, true, true, true},
    {u"LastName", &SearchRecord::LastName, true, false, false},
    {u"FirstName", &SearchRecord::FirstName, true, false, false},
    {u"MI", &SearchRecord::MI, true, false, false},
    {u"Suffix", &SearchRecord::Suffix, true, false, false},
    {u"BusinessName", &SearchRecord::BusinessName, false, true, false},
    {u"CaseNumber", &SearchRecord::CaseNumber, false, false, true},
    {u"Jurisdictions", &SearchRecord::Jurisdictions, true, true, true},
    {u"CaseTypes", &SearchRecord::CaseTypes, true, true, false},
    {u"SearchFromYear", &SearchRecord::SearchFromYear, true, true, false},
    {u"SearchToYear", &SearchRecord::SearchToYear, true, true, false},
    {u"CreateDate", &SearchRecord::CreateDate, true, true, true},
    {u"CreateTime", &SearchRecord::CreateTime, true, true, true},
}};

SearchRecord newRecord(const QString &searchType)
{
    SearchRecord record;
    record.Section = MakeMasterKey();
    record.State = u"Washington"_s;
    record.StateAbbr = u"WA"_s;
    record.CourtName = u"Superior Courts"_s;
    record.SearchType = searchType;
    return record;
}

/// What the records of both kinds of name have in common.
SearchRecord nameRecord(const QString &searchType, const SearchEntry &entry)
{
    SearchRecord record = newRecord(searchType);
    record.Jurisdictions = entry.Where == SearchScope::Statewide
                               ? u"Statewide (All Counties)"_s
                               : entry.Counties.mid(0, mostRecordJurisdictions).join(u", "_s);
    record.CaseTypes = entry.CaseTypes.join(u", "_s);
    const QString allYears = u"All Available Years"_s;
    record.SearchFromYear = entry.YearRange ? TrimBlanks(entry.FromYear) : allYears;
    record.SearchToYear = entry.YearRange ? TrimBlanks(entry.ToYear) : allYears;
    return record;
}

QString boxText(const QString &entered)
{
    const QString text = TrimBlanks(entered);
    return text.isEmpty() ? u"(blank)"_s : text;
}

bool save(SearchRecord record, const QString &iniFile, bool RecordKey::*kind)
{
    const QDateTime now = Clock::Current().Now();
    const QLocale locale = QLocale::system();
    record.CreateDate = locale.toString(now.date(), QLocale::ShortFormat);
    record.CreateTime = locale.toString(now.time(), QLocale::ShortFormat);
    CSetting setting;
    setting.Init(iniFile, true);
    // CSetting does not report a key that it could not write, so each is looked for afterwards.
    const QString missing(QChar(1));
    bool allWritten = true;
    for (const RecordKey &row : recordKeys) {
        if (!(row.*kind))
            continue;
        const QString key = row.key.toString();
        setting.SaveSettingStr(record.Section, key, record.*row.value);
        allWritten = allWritten && setting.GetSettingStr(record.Section, key, missing) != missing;
    }
    if (!allWritten)
        WriteAppInfo(u"An Unknown Error Occurred While Writing Search Record to Ini File"_s);
    return allWritten;
}
} // namespace

SearchRecord CreateWaINameSearchRecord(const SearchEntry &entry)
{
    SearchRecord record = nameRecord(u"Individual Name"_s, entry);
    record.LastName = boxText(entry.Names[LastName]);
    record.FirstName = boxText(entry.Names[FirstName]);
    record.MI = boxText(entry.Names[MiddleInitial]);
    record.Suffix = boxText(entry.Names[Suffix]);
    return record;
}

SearchRecord CreateWaBNameSearchRecord(const SearchEntry &entry)
{
    SearchRecord record = nameRecord(u"Business Name"_s, entry);
    record.BusinessName = TrimBlanks(entry.Names[LastName]);
    return record;
}

SearchRecord CreateWaCaseNumberSearchRecord(const SearchEntry &entry)
{
    SearchRecord record = newRecord(u"Case Number"_s);
    record.CaseNumber = TrimBlanks(entry.Names[LastName]);
    record.Jurisdictions = entry.NumberCounty;
    return record;
}

bool SaveINameRecordToIniFile(const SearchRecord &record, const QString &iniFile)
{
    return save(record, iniFile, &RecordKey::person);
}

bool SaveBNameRecordToIniFile(const SearchRecord &record, const QString &iniFile)
{
    return save(record, iniFile, &RecordKey::business);
}

bool SaveCaseNoRecordToIniFile(const SearchRecord &record, const QString &iniFile)
{
    return save(record, iniFile, &RecordKey::number);
}
