#include "courts/CaseTypes.h"

#include "core/TextUtilities.h"
#include "courts/ListFile.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype mostCaseTypes = 65;

QStringList waCaseTypes;

/// By the type digit, from 0; a digit with an empty word says nothing.
constexpr std::array<QStringView, 10> typeOfDigit{
    u"",       u"Criminal", u"Civil",  u"Domestic",          u"Probate",
    u"Sealed", u"Sealed",   u"Sealed", u"Juvenile Offender", u"Judgment"};

struct NumberHead
{
    QStringView head;
    QStringView word;
};
constexpr std::array<NumberHead, 3> idahoHeads{
    {{u"CR-", u"Criminal"}, {u"CV-", u"Civil"}, {u"JV-", u"Juvenile"}}};

constexpr qsizetype typeDigitPosition = 2;
} // namespace

int LoadWaCaseTypes()
{
    waCaseTypes = ReadListFile(u"WaSCases.txt"_s, mostCaseTypes);
    return static_cast<int>(waCaseTypes.size());
}

QStringList CaseTypesOf(const QString &court)
{
    QStringList types{u"NOT FOUND!!"_s};
    if (court == u"WASUP")
        types = waCaseTypes;
    else if (court == u"OR")
        types = {u"Civil"_s,   u"Domestic"_s, u"Juvenile Offender"_s,
                 u"Offense"_s, u"Probate"_s,  u"Small Claims"_s};
    else if (court == u"IDSUP")
        types = {u"Civil"_s, u"Criminal"_s, u"Juvenile"_s};
    types.sort();
    return types;
}

QString GetCaseTypeFromNumber(const QString &number, const QString &court)
{
    const QString upper = TrimBlanks(number.toUpper());
    if (court.startsWith(u"WA")) {
        QString digits = upper;
        digits.remove(u'-');
        const int digit =
            digits.size() > typeDigitPosition ? digits[typeDigitPosition].digitValue() : -1;
        return digit < 0 ? QString() : typeOfDigit[static_cast<size_t>(digit)].toString();
    }
    if (!court.startsWith(u"ID"))
        return {};
    for (const NumberHead &row : idahoHeads) {
        if (upper.startsWith(row.head))
            return row.word.toString();
    }
    return {};
}
