#include "practice/CaseFile.h"

#include <array>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
// A case that was filed longer ago than this many days is over.
constexpr qint64 openFor = 3 * 365;

constexpr std::array judges{
    u"ANDERSEN, R", u"BLACKWELL, M", u"CHU, D",     u"DELGADO, A", u"EASTMAN, P", u"FAIRHURST, L",
    u"GRANGER, T",  u"HOLLIS, S",    u"IWASAKI, K", u"JANSEN, E",  u"KELLOGG, B", u"LINDQUIST, J",
};

constexpr quint64 judgeSalt = 0x4A00;
} // namespace

quint64 SeedOfCase(const Population &population, QStringView court, QStringView number)
{
    // FNV: the same on every machine, which qHash is not.
    quint64 hash = 0xCBF2'9CE4'8422'2325U ^ (quint64{population.origin.seed} << 17);
    const auto mix = [&hash](QStringView text) {
        for (const QChar character : text)
            hash = (hash ^ character.unicode()) * 0x0000'0100'0000'01B3U;
        hash = (hash ^ 0xFFU) * 0x0000'0100'0000'01B3U;
    };
    mix(court);
    mix(number);
    return hash;
}

ShortRandom DrawingFor(const CaseFile &file, quint64 salt)
{
    return ShortRandom(file.seed ^ (salt << 24));
}

bool IsOver(const CaseFile &file, QDate today)
{
    return !file.stillOpen && file.filed.daysTo(today) > openFor;
}

QString BareNumber(QStringView number)
{
    QString bare;
    for (const QChar character : number) {
        if (character.isLetterOrNumber())
            bare += character.toUpper();
    }
    return bare;
}

QString MoneyText(qint64 cents)
{
    QString whole = QString::number(cents / 100);
    for (qsizetype at = whole.size() - 3; at > 0; at -= 3)
        whole.insert(at, u',');
    return u"%1.%2"_s.arg(whole).arg(cents % 100, 2, 10, QChar(u'0'));
}

QString JudgeOf(const CaseFile &file)
{
    ShortRandom random = DrawingFor(file, judgeSalt);
    return QString::fromUtf16(random.OneOf(judges));
}
} // namespace Practice
