#pragma once

#include <QStringView>

#include <array>

namespace Practice {
// Names that mean something to the practice court: whoever searches for one sees how the program
// takes an outcome that is rare in life. docs/practice.md has the same lists.

/// What a search for a surname of its own meaning brings.
enum class ToldSearch : quint8 {
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

struct ToldName
{
    const char16_t *name;
    ToldSearch search;
};

inline constexpr std::array<ToldName, 18> toldNames{{
    {u"TOOMANY", ToldSearch::TooManyHits}, // some rows, then "too many hits"
    {u"OVER200", ToldSearch::Over200},     // rows, then the notice of more than 200 results
    {u"BADROW", ToldSearch::ErrorRow},     // rows with an error among them
    {u"THEREOF", ToldSearch::Thereof},     // a row that ends like an end mark
    {u"STALL", ToldSearch::Stall},         // some rows, then silence
    {u"DROPLINK", ToldSearch::DropLink},   // some rows, then the connection is closed
    {u"EMPTY", ToldSearch::Empty},         // no rows
    {u"MANY", ToldSearch::Many},           // as many rows as the first name says
    {u"PAGES", ToldSearch::Pages},         // three pages of the index, of which the last is short
    {u"SLOW", ToldSearch::Slow},           // a line of progress a second, then rows
    {u"FIRSTNAME", ToldSearch::FirstNameError},
    {u"ILLEGALROLE", ToldSearch::RoleError},
    {u"INDEXERROR", ToldSearch::OtherError},
    {u"SECONDNAME", ToldSearch::SecondNameWarning},
    {u"INDEXWARNING", ToldSearch::OtherWarning},
    {u"BADLIMIT", ToldSearch::BadLimit},
    {u"DUPES", ToldSearch::NamesOnly},     // a list of people of the name
    {u"MIXED", ToldSearch::NamesAndCases}, // the same between two cases
}};

/// The told search of a surname, whatever its case; nullptr when the name means nothing but itself.
const ToldName *FindToldName(QStringView surname);

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

struct ToldUser
{
    const char16_t *name;
    UserKind kind;
};

inline constexpr std::array<ToldUser, 7> toldUsers{{
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
