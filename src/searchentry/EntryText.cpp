#include "searchentry/EntryText.h"

#include "records/JsonFields.h"
#include "searchentry/FormStates.h"

#include <QJsonDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// Of the form, counted up when what is kept would be read otherwise.
constexpr int version = 1;

const QString searchKey = u"Search"_s;

using Field = JsonField<SearchEntry>;
constexpr std::array<Field, 14> fields{{
    {u"CourtName", &SearchEntry::CourtName},
    {u"Counties", &SearchEntry::Counties},
    {u"NumberCounty", &SearchEntry::NumberCounty},
    {u"CaseTypes", &SearchEntry::CaseTypes},
    {u"JudgmentsOnly", &SearchEntry::JudgmentsOnly},
    {u"UseIndex", &SearchEntry::UseIndex},
    {u"DistrictCourt", &SearchEntry::DistrictCourt},
    {u"DiscisCounty", &SearchEntry::DiscisCounty},
    {u"DiscisItems", &SearchEntry::DiscisItems},
    {u"DiscisSelected", &SearchEntry::DiscisSelected},
    {u"YearRange", &SearchEntry::YearRange},
    {u"FromYear", &SearchEntry::FromYear},
    {u"ToYear", &SearchEntry::ToYear},
    {u"InBatch", &SearchEntry::InBatch},
}};

// What is chosen among few, by name: numbers would change their meaning with the order.
constexpr std::array<QStringView, 5> courtWords{u"Superior", u"Discis", u"Oregon", u"Idaho",
                                                u"Bankruptcy"};
constexpr std::array<QStringView, 5> kindWords{u"Person", u"Business", u"Number", u"TaxId", u"Ssn"};

struct ScopeWord
{
    SearchScope where;
    QStringView word;
};
constexpr std::array<ScopeWord, 5> scopeWords{{
    {SearchScope::Counties, u"Counties"},
    {SearchScope::Template, u"Template"},
    {SearchScope::Statewide, u"Statewide"},
    {SearchScope::DiscisCivil, u"Civil"},
    {SearchScope::DiscisNonCivil, u"NonCivil"},
}};

/// The place of a word among its like, -1 for none of them.
template<size_t count>
int placeOf(const QJsonValue &word, const std::array<QStringView, count> &words)
{
    const auto found = std::find(words.begin(), words.end(), QStringView(word.toString()));
    return found == words.end() ? -1 : static_cast<int>(found - words.begin());
}

QString wordOf(SearchScope where)
{
    const auto found = std::find_if(scopeWords.begin(), scopeWords.end(),
                                    [&](const ScopeWord &row) { return row.where == where; });
    return found == scopeWords.end() ? scopeWords[0].word.toString() : found->word.toString();
}

std::optional<SearchScope> scopeOf(const QJsonValue &word)
{
    for (const ScopeWord &row : scopeWords) {
        if (row.word == word.toString())
            return row.where;
    }
    return std::nullopt;
}

QJsonArray courtsText(const std::array<bool, 4> &courts)
{
    QJsonArray array;
    for (size_t i = 0; i < courts.size(); ++i) {
        if (courts[i])
            array.append(static_cast<int>(i));
    }
    return array;
}

QJsonArray batchText(const std::array<BatchRow, 10> &batch)
{
    QJsonArray array;
    for (size_t i = 0; i < batch.size(); ++i) {
        if (batch[i] != BatchRow())
            array.append(QJsonArray{static_cast<int>(i), batch[i].Number, batch[i].County});
    }
    return array;
}

/// An index below `count`; `count` itself when the value is none.
size_t indexOf(const QJsonValue &value, size_t count)
{
    const int index = value.toInt(-1);
    return index >= 0 && static_cast<size_t>(index) < count ? static_cast<size_t>(index) : count;
}

bool takeCourts(const QJsonValue &value, std::array<bool, 4> &courts)
{
    const QJsonArray array = value.toArray();
    for (const auto &one : array) {
        const size_t index = indexOf(one, courts.size());
        if (index == courts.size())
            return false;
        courts[index] = true;
    }
    return value.isUndefined() || value.isArray();
}

bool takeRow(const QJsonArray &row, std::array<BatchRow, 10> &batch)
{
    const size_t index = indexOf(row.at(0), batch.size());
    if (row.size() != 3 || index == batch.size())
        return false;
    return FromJson(row.at(1), batch[index].Number) && FromJson(row.at(2), batch[index].County);
}

bool takeBatch(const QJsonValue &value, std::array<BatchRow, 10> &batch)
{
    const QJsonArray array = value.toArray();
    for (const auto &one : array) {
        if (!takeRow(one.toArray(), batch))
            return false;
    }
    return value.isUndefined() || value.isArray();
}

bool takeNames(const QJsonValue &value, std::array<QString, 4> &names)
{
    QStringList list;
    if (!value.isUndefined() && !FromJson(value, list))
        return false;
    for (size_t i = 0; i < names.size(); ++i)
        names[i] = list.value(static_cast<qsizetype>(i));
    return list.size() <= static_cast<qsizetype>(names.size());
}

/// What is no plain member of the entry.
bool takeChoices(QJsonObject &object, SearchEntry &entry)
{
    const int court = placeOf(object.take(u"Court"_s), courtWords);
    const int kind = placeOf(object.take(u"Kind"_s), kindWords);
    const std::optional<SearchScope> where = scopeOf(object.take(u"Where"_s));
    if (court < 0 || kind < 0 || !where)
        return false;
    entry.Court = static_cast<CourtFamily>(court);
    entry.Kind = static_cast<SearchKind>(kind);
    entry.Where = *where;
    entry.DiscisCountyIndex = object.take(u"DiscisCountyIndex"_s).toInt(-1);
    return takeNames(object.take(u"Names"_s), entry.Names)
           && takeCourts(object.take(u"BkCourts"_s), entry.BkCourts)
           && takeBatch(object.take(u"Batch"_s), entry.Batch);
}

FormParts partsOf(const SearchEntry &entry)
{
    FormState state;
    state.Court = entry.Court;
    state.Kind = entry.Kind;
    state.Batch = entry.InBatch;
    state.Where = entry.Where;
    return ViewOf(Settled(state));
}

void forgetNames(SearchEntry &entry, FormParts parts)
{
    const size_t read = !parts.testFlag(FormPart::Name)    ? 0
                        : entry.Kind == SearchKind::Person ? entry.Names.size()
                                                           : 1;
    for (size_t i = read; i < entry.Names.size(); ++i)
        entry.Names[i].clear();
}

void forgetCounties(SearchEntry &entry, FormParts parts)
{
    if (!parts.testFlag(FormPart::Jurisdictions)) {
        entry.Counties.clear();
        if (entry.Court != CourtFamily::Discis)
            entry.Where = SearchScope::Counties;
    }
    if (!parts.testFlag(FormPart::OneJurisdiction))
        entry.NumberCounty.clear();
    if (!parts.testFlag(FormPart::CaseTypes))
        entry.CaseTypes.clear();
    entry.JudgmentsOnly = entry.JudgmentsOnly && parts.testFlag(FormPart::JudgmentsOnly);
    entry.UseIndex = entry.UseIndex && parts.testFlag(FormPart::UseIndex);
    entry.DistrictCourt = entry.DistrictCourt && parts.testFlag(FormPart::OrCDcourts);
}

void forgetDiscis(SearchEntry &entry)
{
    entry.DiscisCountyIndex = -1;
    entry.DiscisCounty.clear();
    entry.DiscisItems.clear();
    entry.DiscisSelected.clear();
}

void forgetYears(SearchEntry &entry, FormParts parts)
{
    entry.YearRange =
        entry.YearRange
        && (parts.testFlag(FormPart::Years) || parts.testFlag(FormPart::BankruptcyYears));
    if (entry.YearRange)
        return;
    entry.FromYear.clear();
    entry.ToYear.clear();
}

void forgetBatch(SearchEntry &entry, FormParts parts)
{
    entry.InBatch = parts.testFlag(FormPart::Batch);
    for (BatchRow &row : entry.Batch) {
        if (!entry.InBatch || row.Number.isEmpty())
            row = {};
    }
}
} // namespace

SearchEntry AsAsked(SearchEntry entry)
{
    const FormParts parts = partsOf(entry);
    // Only for the list of the session.
    entry.CourtName.clear();
    forgetNames(entry, parts);
    forgetCounties(entry, parts);
    if (entry.Court != CourtFamily::Discis)
        forgetDiscis(entry);
    if (entry.Court != CourtFamily::Bankruptcy)
        entry.BkCourts = {};
    forgetYears(entry, parts);
    forgetBatch(entry, parts);
    return entry;
}

SearchEntry AsAskedOf(const SearchEntry &entry, int bankruptcyCourt)
{
    SearchEntry one = AsAsked(entry);
    one.BkCourts = {};
    one.BkCourts.at(static_cast<size_t>(bankruptcyCourt)) = true;
    return one;
}

SearchEntry AsAskedInRow(const SearchEntry &entry, size_t row)
{
    SearchEntry one = entry;
    one.Batch = {};
    one.Batch[0] = entry.Batch.at(row);
    one.InBatch = true;
    return AsAsked(one);
}

QByteArray TextOfEntry(const SearchEntry &entry)
{
    QJsonObject object{{searchKey, version},
                       {u"Court"_s, courtWords.at(static_cast<size_t>(entry.Court)).toString()},
                       {u"Kind"_s, kindWords.at(static_cast<size_t>(entry.Kind)).toString()},
                       {u"Where"_s, wordOf(entry.Where)}};
    WriteFields(object, entry, {}, fields);
    const QStringList names(entry.Names.begin(), entry.Names.end());
    object.insert(u"Names"_s, ToJson(names));
    if (entry.DiscisCountyIndex >= 0)
        object.insert(u"DiscisCountyIndex"_s, entry.DiscisCountyIndex);
    if (const QJsonArray courts = courtsText(entry.BkCourts); !courts.isEmpty())
        object.insert(u"BkCourts"_s, courts);
    if (const QJsonArray batch = batchText(entry.Batch); !batch.isEmpty())
        object.insert(u"Batch"_s, batch);
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<SearchEntry> EntryOf(const QByteArray &text)
{
    QJsonObject object = QJsonDocument::fromJson(text).object();
    SearchEntry entry;
    if (object.take(searchKey).toInt() != version || !takeChoices(object, entry)
        || !TakeFields(object, entry, fields) || !object.isEmpty())
        return std::nullopt;
    return entry;
}
