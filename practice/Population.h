#pragma once

#include "practice/CaseNumber.h"

#include <QDate>
#include <QHash>
#include <QString>

#include <optional>
#include <vector>

namespace Practice {
/// Somebody with a name the courts know: a person, or a business, whose whole name is in `last`.
struct Person
{
    QString last;
    QString first;
    QString middle; ///< one letter, or nothing
    bool business = false;
};

/// The name as a court writes it: "SMITH, JOHN Q".
QString NameText(const Person &person);

/// A case of the Superior Courts. Those of the other courts are not kept: OtherCases.h works them
/// out of the people.
struct CourtCase
{
    CaseNumber number;
    QDate filed;
    QString description;
    bool archived = false;
};

/// What a person has to do with a case.
struct Part
{
    quint32 person = 0;
    quint32 courtCase = 0;
    QString role;
};

/// How a population came to be: the cases of the other courts are worked out of it.
struct Origin
{
    quint32 seed = 0;
    quint32 madeUp = 0; ///< so many people, the first ones, were made up from the seed
    int thisYear = 0;   ///< the year that is running
};

/// Who is asked for. All texts are upper case.
struct NameQuery
{
    QString last;   ///< a surname, or words of a business name
    QString first;  ///< what the first name begins with
    QString middle; ///< only its first letter counts
};

/// Everybody with a court case, and their cases. One person can have cases in several courts and
/// counties: what joins them is the Part, never a copy of the name. Names and case numbers are
/// indexed as they are added, so that a question is answered at once however many there are.
class Population
{
public:
    Origin origin;

    quint32 AddPerson(const Person &person);
    quint32 AddCase(const CourtCase &courtCase);
    void AddPart(quint32 person, quint32 courtCase, const QString &role);

    const std::vector<Person> &People() const { return people; }
    const std::vector<CourtCase> &Cases() const { return cases; }
    const std::vector<Part> &Parts() const { return parts; }

    /// The person of exactly that name, the first one added.
    std::optional<quint32> FindPerson(const Person &name) const;

    /// The Superior Court case of that number.
    std::optional<quint32> FindCase(const CaseNumber &number) const;

    /// The people and businesses that `query` asks for. A surname is meant as a whole; a business
    /// is found by words of its name, and only when no first name is asked for.
    std::vector<quint32> Find(const NameQuery &query) const;

    /// The places in Parts() of what `person` has to do with cases.
    const std::vector<quint32> &PartsOf(quint32 person) const { return partsOf[person]; }

    /// The places in Parts() of those who have to do with `courtCase`, as they were added.
    std::vector<quint32> PartiesOf(quint32 courtCase) const;

private:
    std::vector<Person> people;
    std::vector<CourtCase> cases;
    std::vector<Part> parts;
    std::vector<std::vector<quint32>> partsOf;
    // The parties of a case as a chain, from the last one added back to the first.
    std::vector<quint32> lastParty;
    std::vector<quint32> partyBefore;
    QHash<QString, std::vector<quint32>> bySurname;
    QHash<QString, std::vector<quint32>> byBusinessWord;
    QHash<quint64, quint32> byNumber;
};
} // namespace Practice
