#include "courts/Counties.h"

#include "core/TextUtilities.h"
#include "courts/ListFile.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype mostWaCounties = 40;
constexpr qsizetype mostOrCounties = 38;
constexpr qsizetype mostIdCounties = 44;

constexpr std::array<QStringView, 39> waCounties{
    u"Adams",     u"Asotin",       u"Benton",  u"Chelan",    u"Clallam",   u"Clark",
    u"Columbia",  u"Cowlitz",      u"Douglas", u"Ferry",     u"Franklin",  u"Garfield",
    u"Grant",     u"Grays Harbor", u"Island",  u"Jefferson", u"King",      u"Kitsap",
    u"Kittitas",  u"Klickitat",    u"Lewis",   u"Lincoln",   u"Mason",     u"Okanogan",
    u"Pacific",   u"Pend Oreille", u"Pierce",  u"San Juan",  u"Skagit",    u"Skamania",
    u"Snohomish", u"Spokane",      u"Stevens", u"Thurston",  u"Wahkiakum", u"Walla Walla",
    u"Whatcom",   u"Whitman",      u"Yakima"};

struct OrCounty
{
    QStringView name;
    QStringView code;
};

constexpr std::array<OrCounty, 37> orCounties{{
    {u"Baker", u"BAK"},     {u"Benton", u"BEN"},     {u"City of Hermiston", u"HER"},
    {u"Clackamas", u"CLA"}, {u"Clatsop", u"CLT"},    {u"Columbia", u"COL"},
    {u"Coos", u"COO"},      {u"Crook", u"CRO"},      {u"Curry", u"CUR"},
    {u"Deschutes", u"DES"}, {u"Douglas", u"DOU"},    {u"Gilliam", u"GIL"},
    {u"Grant", u"GRA"},     {u"Harney", u"HAR"},     {u"Hood", u"HOO"},
    {u"Jackson", u"JAC"},   {u"Jefferson", u"JEF"},  {u"Josephine", u"JOS"},
    {u"Klamath", u"KLA"},   {u"Lake", u"LAK"},       {u"Lane", u"LAN"},
    {u"Lincoln", u"LNN"},   {u"Linn", u"LIN"},       {u"Malheur", u"MAL"},
    {u"Marion", u"MAR"},    {u"Morrow", u"MOR"},     {u"Multnomah", u"MCR"},
    {u"Polk", u"PLK"},      {u"Sherman", u"SHE"},    {u"Tillamook", u"TIL"},
    {u"Umatilla", u"UMA"},  {u"Union", u"UNI"},      {u"Wallowa", u"WAL"},
    {u"Wasco", u"WAS"},     {u"Washington", u"WSH"}, {u"Wheeler", u"WHE"},
    {u"Yamhill", u"YAM"},
}};

/// The list says "Hood", whoever comes back from a code says the county's full name.
constexpr QStringView hoodCode = u"HOO";
constexpr QStringView hoodFullName = u"Hood River";

QStringList waList;
QStringList orList;
QStringList idList;
} // namespace

QStringList WaCountyNames()
{
    QStringList names;
    for (const QStringView name : waCounties)
        names.append(name.toString());
    return names;
}

QStringList OrCountyNames()
{
    QStringList names;
    for (const OrCounty &county : orCounties)
        names.append(county.name.toString());
    return names;
}

QString CountyFromDiscisCode(const QString &code)
{
    for (size_t i = 0; i < waCounties.size(); ++i) {
        const QString number = QString::number(i + 1);
        if (code == u's' + number.rightJustified(2, u'0') || code == u's' + number)
            return waCounties[i].toString();
    }
    return {};
}

QString GetOrCountyCode(const QString &name)
{
    if (name == hoodFullName)
        return hoodCode.toString();
    for (const OrCounty &county : orCounties) {
        if (name == county.name)
            return county.code.toString();
    }
    return {};
}

QString GetOrCountyName(const QString &code)
{
    if (code == hoodCode)
        return hoodFullName.toString();
    for (const OrCounty &county : orCounties) {
        if (code == county.code)
            return county.name.toString();
    }
    return {};
}

QString GetOrCountyFromList(const QString &text)
{
    for (const QString &name : orList) {
        if (text.contains(u' ' + name + u' '))
            return name;
    }
    return {};
}

QString OrCountiesWithoutDistrictCourt()
{
    return u" Baker Gilliam Grant Harney Sherman Wheeler "_s;
}

QString OrCountiesWithoutJuvenile()
{
    return u" Benton Crook Gilliam Harney City of Hermiston Jefferson Morrow Multinomah Sherman "
           "Washington Wheeler "_s;
}

const QStringList &WaCountyList()
{
    return waList;
}

const QStringList &OrCountyList()
{
    return orList;
}

const QStringList &IdCountyList()
{
    return idList;
}

int LoadWaCounties()
{
    waList = ReadListFile(u"wactylst.txt"_s, mostWaCounties);
    return static_cast<int>(waList.size());
}

int LoadOrCounties()
{
    orList = ReadListFile(u"OrCtyLst.txt"_s, mostOrCounties);
    return static_cast<int>(orList.size());
}

int LoadIdCounties()
{
    idList = ReadListFile(u"IdCtyLst.txt"_s, mostIdCounties);
    return static_cast<int>(idList.size());
}

int GetCountyCount(const QString &state)
{
    const QString lower = state.toLower();
    if (lower != u"wa" && lower != u"wa.")
        return 0;
    const int count = LoadWaCounties();
    if (count == 0)
        ShowErrorBox(u"Error Loading WA Counties From File."_s);
    return count;
}
