#include "practice/OtherCourts.h"

#include "practice/Counties.h"

#include <QFile>
#include <QHash>
#include <QStringList>

#include <algorithm>
#include <array>
#include <vector>

using namespace Qt::StringLiterals;

/// The resource lies in a library: without this call the linker leaves it out.
static void initCatalogue()
{
    Q_INIT_RESOURCE(Catalogue);
}

namespace Practice {
namespace {
/// An Oregon county. Its weight is about how many thousand people live there.
struct OregonCounty
{
    const char16_t *code;
    const char16_t *name; ///< as its courts write it
    int weight;
    bool hasDistrictCourt = true;
};

constexpr std::array<OregonCounty, 37> oregonCounties{{
    {u"BAK", u"Baker", 17, false},
    {u"BEN", u"Benton", 95},
    {u"HER", u"City of Hermiston", 19},
    {u"CLA", u"Clackamas", 421},
    {u"CLT", u"Clatsop", 41},
    {u"COL", u"Columbia", 53},
    {u"COO", u"Coos", 65},
    {u"CRO", u"Crook", 25},
    {u"CUR", u"Curry", 23},
    {u"DES", u"Deschutes", 198},
    {u"DOU", u"Douglas", 111},
    {u"GIL", u"Gilliam", 2, false},
    {u"GRA", u"Grant", 7, false},
    {u"HAR", u"Harney", 7, false},
    {u"HOO", u"Hood River", 24},
    {u"JAC", u"Jackson", 223},
    {u"JEF", u"Jefferson", 24},
    {u"JOS", u"Josephine", 88},
    {u"KLA", u"Klamath", 69},
    {u"LAK", u"Lake", 8},
    {u"LAN", u"Lane", 383},
    {u"LNN", u"Lincoln", 50},
    {u"LIN", u"Linn", 129},
    {u"MAL", u"Malheur", 32},
    {u"MAR", u"Marion", 346},
    {u"MOR", u"Morrow", 12},
    {u"MCR", u"Multnomah", 815},
    {u"PLK", u"Polk", 87},
    {u"SHE", u"Sherman", 2, false},
    {u"TIL", u"Tillamook", 27},
    {u"UMA", u"Umatilla", 80},
    {u"UNI", u"Union", 26},
    {u"WAL", u"Wallowa", 7},
    {u"WAS", u"Wasco", 27},
    {u"WSH", u"Washington", 600},
    {u"WHE", u"Wheeler", 1, false},
    {u"YAM", u"Yamhill", 108},
}};

constexpr std::array<County, 44> idahoCounties{{
    {u"Ada", 495},     {u"Adams", 4},        {u"Bannock", 87},   {u"Bear Lake", 6},
    {u"Benewah", 10},  {u"Bingham", 48},     {u"Blaine", 24},    {u"Boise", 8},
    {u"Bonner", 47},   {u"Bonneville", 124}, {u"Boundary", 12},  {u"Butte", 3},
    {u"Camas", 1},     {u"Canyon", 231},     {u"Caribou", 7},    {u"Cassia", 25},
    {u"Clark", 1},     {u"Clearwater", 9},   {u"Custer", 4},     {u"Elmore", 29},
    {u"Franklin", 14}, {u"Fremont", 13},     {u"Gem", 19},       {u"Gooding", 16},
    {u"Idaho", 17},    {u"Jefferson", 31},   {u"Jerome", 24},    {u"Kootenai", 171},
    {u"Latah", 40},    {u"Lemhi", 8},        {u"Lewis", 4},      {u"Lincoln", 5},
    {u"Madison", 53},  {u"Minidoka", 22},    {u"Nez Perce", 42}, {u"Oneida", 5},
    {u"Owyhee", 12},   {u"Payette", 25},     {u"Power", 8},      {u"Shoshone", 13},
    {u"Teton", 12},    {u"Twin Falls", 90},  {u"Valley", 12},    {u"Washington", 10},
}};

using Courts = std::vector<OtherCourt>;

QString text(const char16_t *literal)
{
    return QString::fromUtf16(literal);
}

Courts makeOregon()
{
    Courts courts;
    for (const OregonCounty &county : oregonCounties) {
        const QString name = text(county.name);
        // The program tells the two by "Co Cir Ct", and the county by its name between blanks.
        courts.push_back({text(county.code) + u" C"_s, u"OR %1 Co Cir Ct"_s.arg(name),
                          name + u" County Circuit Court"_s, county.weight * 3, false});
        if (county.hasDistrictCourt)
            courts.push_back({text(county.code) + u" D"_s, u"OR %1 Co Dist Ct"_s.arg(name),
                              name + u" County District Court"_s, county.weight, true});
    }
    return courts;
}

Courts makeIdaho()
{
    Courts courts;
    for (const County &county : idahoCounties) {
        const QString name = text(county.name);
        courts.push_back({name, u"ID District Ct %1 County"_s.arg(name),
                          name + u" County District Court"_s, county.weight, false});
    }
    return courts;
}

/// The courts of a county share its weight.
Courts makeDistrict()
{
    initCatalogue();
    QFile file(u":/practice/wadisciscts.txt"_s);
    Courts courts;
    std::vector<int> countyOf;
    QHash<int, int> courtsIn;
    if (!file.open(QIODevice::ReadOnly))
        return courts;
    while (!file.atEnd()) {
        // Index, county, code, city, name.
        const QStringList fields = QString::fromUtf8(file.readLine()).trimmed().split(u',');
        const int county = fields.size() < 5 ? 0 : CountyNumber(fields[1]).value_or(0);
        if (county == 0)
            continue;
        const QString name = fields[4].trimmed();
        courts.push_back({fields[2].trimmed(), name, name + u" Court"_s, 0, false});
        countyOf.push_back(county);
        ++courtsIn[county];
    }
    for (std::size_t i = 0; i < courts.size(); ++i) {
        const int weight = counties[static_cast<std::size_t>(countyOf[i] - 1)].weight;
        courts[i].weight = std::max(1, weight / courtsIn.value(countyOf[i]));
    }
    return courts;
}

Courts makeBankruptcy()
{
    return {
        {u"WAW"_s, u"WA Western Bankruptcy Ct"_s, u"Washington Western Bankruptcy Court"_s, 50},
        {u"WAE"_s, u"WA Eastern Bankruptcy Ct"_s, u"Washington Eastern Bankruptcy Court"_s, 15},
        {u"OR"_s, u"OR Bankruptcy Ct"_s, u"Oregon Bankruptcy Court"_s, 40},
        {u"ID"_s, u"ID Bankruptcy Ct"_s, u"Idaho Bankruptcy Court"_s, 18},
    };
}
} // namespace

std::span<const OtherCourt> CourtsOf(OtherFamily family)
{
    static const std::array<Courts, 4> all{makeOregon(), makeIdaho(), makeDistrict(),
                                           makeBankruptcy()};
    return all[static_cast<std::size_t>(family)];
}

std::optional<int> FindCourt(OtherFamily family, QStringView code)
{
    const std::span<const OtherCourt> courts = CourtsOf(family);
    const QStringView wanted = code.trimmed();
    for (std::size_t i = 0; i < courts.size(); ++i) {
        if (wanted.compare(courts[i].code, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i);
    }
    return std::nullopt;
}
} // namespace Practice
