#include "practice/Population.h"

#include <QStringList>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
constexpr quint32 nobody = 0xFFFF'FFFF;

/// The words of a business name; blanks and dashes are what they are parted by.
QStringList wordsOf(const QString &name)
{
    QStringList words;
    QString word;
    for (const QChar character : name) {
        if (character.isLetterOrNumber() || character == u'&' || character == u'\'') {
            word += character;
        } else if (!word.isEmpty()) {
            words.append(word);
            word.clear();
        }
    }
    if (!word.isEmpty())
        words.append(word);
    words.removeDuplicates();
    return words;
}

quint64 keyOf(const CaseNumber &number)
{
    auto key = static_cast<quint64>(number.county);
    key = key * 10'000 + static_cast<quint64>(number.year);
    key = key * 10 + static_cast<quint64>(number.type);
    return key * 100'000 + static_cast<quint64>(number.serial);
}
} // namespace

QString NameText(const Person &person)
{
    if (person.business || person.first.isEmpty())
        return person.last;
    QString text = person.last + u", "_s + person.first;
    if (!person.middle.isEmpty())
        text += u' ' + person.middle;
    return text;
}

quint32 Population::AddPerson(const Person &person)
{
    const auto id = static_cast<quint32>(people.size());
    people.push_back(person);
    partsOf.emplace_back();
    if (person.business) {
        for (const QString &word : wordsOf(person.last))
            byBusinessWord[word].push_back(id);
    } else {
        bySurname[person.last].push_back(id);
    }
    return id;
}

quint32 Population::AddCase(const CourtCase &courtCase)
{
    const auto id = static_cast<quint32>(cases.size());
    cases.push_back(courtCase);
    lastParty.push_back(nobody);
    byNumber.insert(keyOf(courtCase.number), id);
    return id;
}

void Population::AddPart(quint32 person, quint32 courtCase, const QString &role)
{
    const auto part = static_cast<quint32>(parts.size());
    partsOf[person].push_back(part);
    parts.push_back({person, courtCase, role});
    partyBefore.push_back(std::exchange(lastParty[courtCase], part));
}

std::vector<quint32> Population::PartiesOf(quint32 courtCase) const
{
    std::vector<quint32> parties;
    for (quint32 part = lastParty[courtCase]; part != nobody; part = partyBefore[part])
        parties.push_back(part);
    std::reverse(parties.begin(), parties.end());
    return parties;
}

std::optional<quint32> Population::FindPerson(const Person &name) const
{
    std::vector<quint32> candidates;
    if (name.business) {
        const QStringList words = wordsOf(name.last);
        if (!words.isEmpty())
            candidates = byBusinessWord.value(words.first());
    } else {
        candidates = bySurname.value(name.last);
    }
    for (const quint32 id : candidates) {
        const Person &person = people[id];
        if (person.last == name.last && person.first == name.first && person.middle == name.middle)
            return id;
    }
    return std::nullopt;
}

std::optional<quint32> Population::FindCase(const CaseNumber &number) const
{
    const auto found = byNumber.constFind(keyOf(number));
    if (found == byNumber.constEnd())
        return std::nullopt;
    return *found;
}

std::vector<quint32> Population::Find(const NameQuery &query) const
{
    std::vector<quint32> found;
    for (const quint32 id : bySurname.value(query.last)) {
        const Person &person = people[id];
        if (person.first.startsWith(query.first)
            && (query.middle.isEmpty() || person.middle.startsWith(query.middle.front())))
            found.push_back(id);
    }
    const QStringList words = wordsOf(query.last);
    if (!query.first.isEmpty() || !query.middle.isEmpty() || words.isEmpty())
        return found;
    for (const quint32 id : byBusinessWord.value(words.first())) {
        const QStringList own = wordsOf(people[id].last);
        const bool all = std::all_of(words.begin(), words.end(),
                                     [&](const QString &word) { return own.contains(word); });
        if (all)
            found.push_back(id);
    }
    return found;
}
} // namespace Practice
