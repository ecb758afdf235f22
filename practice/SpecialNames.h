#pragma once

#include <QStringView>

#include <array>

namespace Practice {
// Names that mean something to the practice court: whoever searches for one sees how the program
// takes an outcome that is rare in life. docs/practice.md has the same lists.

/// What a search for a surname of its own meaning brings.
enum class SpecialSearch : quint8 {
    TooManyHits,
    Over200,
    ErrorRow,
    Thereof,
    Stall,
    DropLink,
    Empty,
    Many,
    Pages,
    Slow,
    FirstNameError, // from here on they mean something to the index alone
    RoleError,
    OtherError,
    SecondNameWarning,
    OtherWarning,
    BadLimit,
    NamesOnly, // and these to a search of all district courts alone
    NamesAndCases,
};

struct SpecialName
{
    const char16_t *name;
    SpecialSearch search;
};

inline constexpr std::array<SpecialName, 18> specialNames{{
    {u"TOOMANY", SpecialSearch::TooManyHits}, // some rows, then "too many hits"
    {u"OVER200", SpecialSearch::Over200},     // rows, then the notice of more than 200 results
    {u"BADROW", SpecialSearch::ErrorRow},     // rows with an error among them
    {u"THEREOF", SpecialSearch::Thereof},     // a row that ends like an end mark
    {u"STALL", SpecialSearch::Stall},         // some rows, then silence
    {u"DROPLINK", SpecialSearch::DropLink},   // some rows, then the connection is closed
    {u"EMPTY", SpecialSearch::Empty},         // no rows
    {u"MANY", SpecialSearch::Many},           // as many rows as the first name says
    {u"PAGES", SpecialSearch::Pages}, // three pages of the index, of which the last is short
    {u"SLOW", SpecialSearch::Slow},   // a line of progress a second, then rows
    {u"FIRSTNAME", SpecialSearch::FirstNameError},
    {u"ILLEGALROLE", SpecialSearch::RoleError},
    {u"INDEXERROR", SpecialSearch::OtherError},
    {u"SECONDNAME", SpecialSearch::SecondNameWarning},
    {u"INDEXWARNING", SpecialSearch::OtherWarning},
    {u"BADLIMIT", SpecialSearch::BadLimit},
    {u"DUPES", SpecialSearch::NamesOnly},     // a list of people of the name
    {u"MIXED", SpecialSearch::NamesAndCases}, // the same between two cases
}};

/// The special search of a surname, whatever its case; nullptr when the name means nothing but
/// itself.
const SpecialName *FindSpecialName(QStringView surname);

/// How the court treats a user.
enum class UserKind : quint8 {
    Ordinary,
    Refused,    ///< invalid user name or password
    NoEndMark,  ///< refused, but the reply never ends
    Silent,     ///< no answer to the login
    Dropped,    ///< the login closes the connection
    Accounting, ///< must give a client accounting code
    Mail,       ///< has a private message
    Quiet,      ///< gets no parameters and no broadcast
};

struct SpecialUser
{
    const char16_t *name;
    UserKind kind;
};

inline constexpr std::array<SpecialUser, 7> specialUsers{{
    {u"nobody", UserKind::Refused},
    {u"noend", UserKind::NoEndMark},
    {u"silent", UserKind::Silent},
    {u"droplink", UserKind::Dropped},
    {u"acctg", UserKind::Accounting},
    {u"mail", UserKind::Mail},
    {u"quiet", UserKind::Quiet},
}};

/// The password that is wrong for everybody.
inline constexpr auto wrongPassword = u"wrong";

/// How the court treats this user with this password. Neither is case sensitive; both must be
/// there.
UserKind KindOfUser(QStringView name, QStringView password);
} // namespace Practice
