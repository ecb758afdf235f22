#include "practice/ListedPeople.h"

#include "practice/SearchFields.h"
#include "practice/SpecialSearches.h"

#include <QDate>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
enum ListedField : qsizetype { ListedName = 2, BirthDate = 4, Number = 5, NumberPart = 6 };

constexpr auto usualFirstName = u"JOHN";
// Of one person in the list the court does not know when he was born; what the program shows then
// comes back as the answer.
constexpr qint64 bornUnknown = 2;
constexpr qint64 heightUnknown = 1;
constexpr auto unknown = u"Unknown";
constexpr auto shownAsUnknown = u"n/a";
constexpr int daysBetweenBirths = 251;
constexpr qint64 firstNumber = 700'401;
// Far apart, so that a person's cases lie in several courts.
constexpr qint64 caseStride = 41;

constexpr std::array races{u"W", u"B", u"H", u"A"};
constexpr std::array looks{u"BRO/BRO", u"BLN/BLU", u"BLK/BRO", u"RED/GRN"};
constexpr std::array notes{u"", u"Alias", u"", u"Tattoo L arm"};
constexpr std::array streets{u"1200 MAIN ST SPOKANE", u"48 PINE AVE TACOMA",
                             u"9 HARBOR RD ANACORTES", u"315 ORCHARD LN YAKIMA"};

template<std::size_t count>
QString turn(const std::array<const char16_t *, count> &words, qint64 place)
{
    return QString::fromUtf16(words[static_cast<std::size_t>(place) % count]);
}

QString bornText(qint64 place)
{
    if (place == bornUnknown)
        return QString::fromUtf16(unknown);
    return DateText(QDate(1940, 1, 15).addDays(place * daysBetweenBirths));
}

QString numberText(qint64 place)
{
    return QString::number(firstNumber + place);
}

QString partText(qint64 place)
{
    return u"%1"_s.arg(place % 4 + 1, 2, 10, QChar(u'0'));
}

/// The name searched for, with another middle initial for each of its bearers unless one was given.
QString nameOf(const NameQuery &asked, qint64 place)
{
    Person person;
    person.last = asked.last;
    bool isNumber = false;
    asked.first.toLongLong(&isNumber);
    person.first =
        asked.first.isEmpty() || isNumber ? QString::fromUtf16(usualFirstName) : asked.first;
    person.middle = asked.middle.isEmpty()
                        ? QString(QChar(static_cast<char16_t>(u'A' + place % 26)))
                        : asked.middle.left(1);
    return NameText(person);
}

QString rowOf(const NameQuery &asked, qint64 place, bool withAddresses)
{
    const QString name = nameOf(asked, place);
    const QString sex = place % 5 == 4 ? u"F"_s : u"M"_s;
    const QString race = turn(races, place);
    const QString height =
        place == heightUnknown ? QString::fromUtf16(unknown) : QString::number(506 + place % 6);
    const QString weight = QString::number(145 + place * 17 % 90);
    const QString look = turn(looks, place);
    const QStringList fields = withAddresses
                                   ? QStringList{u"NCDND"_s,
                                                 name,
                                                 sex,
                                                 height,
                                                 race,
                                                 weight,
                                                 bornText(place),
                                                 look,
                                                 numberText(place),
                                                 partText(place),
                                                 turn(streets, place)}
                                   : QStringList{u"NCNMD"_s, name,   sex,  bornText(place),   race,
                                                 height,     weight, look, turn(notes, place)};
    return fields.join(u'~') + u'~';
}
} // namespace

void SayListedPeople(SpecialSearch meaning, const OtherSearch &search, bool withAddresses,
                     Reply &reply)
{
    const NameQuery asked = search.name;
    bool isNumber = false;
    const qint64 number = asked.first.toLongLong(&isNumber);
    const qint64 count = isNumber ? std::clamp<qint64>(number, 0, mostListedPeople) : listedPeople;
    const auto sayCase = [&](qint64 place) {
        if (meaning == SpecialSearch::NamesAndCases)
            reply.Say(search.write(MadeUpHit(search, place), QString()));
    };
    sayCase(0);
    reply.Rows(count,
               [asked, withAddresses](qint64 place) { return rowOf(asked, place, withAddresses); });
    sayCase(1);
}

std::optional<qint64> FindListed(const QStringList &fields, bool withAddresses)
{
    const SpecialName *special = FindSpecialName(fields[ListedName].section(u',', 0, 0));
    if (special == nullptr
        || (special->search != SpecialSearch::NamesOnly
            && special->search != SpecialSearch::NamesAndCases))
        return std::nullopt;
    for (qint64 place = 0; place < mostListedPeople; ++place) {
        if (withAddresses) {
            if (fields[Number] == numberText(place) && fields[NumberPart] == partText(place))
                return place;
            continue;
        }
        const QString shown =
            place == bornUnknown ? QString::fromUtf16(shownAsUnknown) : bornText(place);
        if (fields[BirthDate] == shown)
            return place;
    }
    return std::nullopt;
}

OtherHit ListedCase(const QString &name, qint64 place, int number, const OtherSearch &search)
{
    OtherHit hit = MadeUpHit(search, 2 + (place * 3 + number) * caseStride);
    hit.person = {name, {}, {}, true}; // the name as it was listed
    return hit;
}

void SayListedCases(const QString &name, qint64 place, const OtherSearch &search, Reply &reply)
{
    std::vector<OrderedRow> rows;
    for (int i = 0; i < ListedCases(place); ++i) {
        const OtherHit hit = ListedCase(name, place, i, search);
        rows.push_back(
            {name, hit.courtCase.filed, hit.courtCase.number, search.write(hit, QString())});
    }
    SayOrdered(std::move(rows), reply);
}
} // namespace Practice
