#pragma once

#include "casedetails/CaseDesk.h"

#include <QMetaType>
#include <QStringList>

#include <array>

using namespace Qt::StringLiterals;

// What the District and Municipal Courts are asked for and answer, as far as their two windows
// differ.

Q_DECLARE_METATYPE(CaseKind)
Q_DECLARE_METATYPE(CaseTab)

/// A tab of one of the two windows.
struct DistrictTab
{
    CaseTab tab;
    QStringView word;
    QStringView noteHead; ///< what a note ahead of the table begins with
    const char *firstNote;
    const char *secondNote;
    QStringView empty;
    QStringView incomplete;
    QStringView emptyLog; ///< with the request behind it, "" for none
    QStringView incompleteLog;
};

struct DistrictWindow
{
    CaseKind kind;
    const char *name;
    QStringView section;
    QStringView caseType;
    QStringView family;
    QStringView summaryWord;
    std::array<DistrictTab, 3> tabs;
};

inline constexpr DistrictTab namesTab(QStringView word)
{
    return {CaseTab::Names,
            word,
            u"CPARNOTE~",
            "lblNameNote1",
            "lblNameNote2",
            u"No Names Were Found For This Case.",
            u"Name Search Incomplete. Please Retry Search.",
            u"NO Responses for this Names request: ",
            u"Search Incomplete for this Names request: "};
}

inline constexpr DistrictTab docketTab(QStringView word)
{
    return {CaseTab::Docket,
            word,
            u"CDKNOTE~",
            "lblNoteCDK1",
            "lblNoteCDK2",
            u"No Docket Information Found For This Case.",
            u"Docket Information Incomplete. Please Retry Search.",
            u"NO Responses for this Docket request: ",
            u"Incomplete Docket request: "};
}

inline constexpr std::array<DistrictWindow, 2> districtWindows{{
    {CaseKind::NonCivil,
     "non-civil",
     u"NonCivilCaseTabs",
     u"NON-CIVIL",
     u"IN",
     u"NCNCC",
     {{namesTab(u"NCPAR"),
       docketTab(u"NCCDK"),
       {CaseTab::Violations, u"NCVIO", u"NCVIONOTE~", "lblNCVIONote1", "lblNCVIONote2",
        u"No Additional Violations Details Available.",
        u"Violations Information Incomplete. Please Retry Search.", u"", u""}}}},
    {CaseKind::Civil,
     "civil",
     u"CivilCaseTabs",
     u"CIVIL  CV",
     u"CV",
     u"CIVI",
     {{namesTab(u"CVPAR"),
       docketTab(u"CVCDK"),
       {CaseTab::Judgments, u"CVJI", u"CVJINOTE~", "lblCvjiNote1", "lblCvjiNote2",
        u"No Judgments Were Found For This Case.",
        u"Judgments Search Incomplete. Please Retry Search",
        u"NO Responses for this Judgments request: ", u"Incomplete Judgments request: "}}}},
}};

inline const DistrictWindow &DistrictOf(CaseKind kind)
{
    return kind == CaseKind::NonCivil ? districtWindows.front() : districtWindows.back();
}

/// The request line of a case of the court "SED".
inline QString DistrictLineOf(CaseKind kind, QStringView word,
                              const QString &number = u"Y00012345"_s)
{
    const QString family = DistrictOf(kind).family.toString();
    return u"WADISCIS¦¦¦¦%1¦%2¦SED¦%2¦%3¦¦"_s.arg(number, family, word.toString());
}

class DiscisCaseWindow;

/// The lines of a Summary with these items behind its headers, without the end mark.
QStringList DistrictSummary(CaseKind kind, const QStringList &items = {u"Status~Open~"_s});

/// A test of the windows of these courts.
class DistrictTest : public CaseTest
{
    Q_OBJECT
protected:
    DiscisCaseWindow *Make(CaseKind kind, const QString &number = QStringLiteral("Y00012345"));
    void ExpectSummary(CaseKind kind, const QStringList &reply);
    /// Runs a case whose Summary says this.
    DiscisCaseWindow *AfterSummary(CaseKind kind, const QStringList &summary);
    /// Runs a case of which this tab alone is fetched, with this reply.
    DiscisCaseWindow *AfterTab(CaseKind kind, const DistrictTab &tab, const QStringList &reply);
    /// Every line of a case with this number and type, each with an answer of its own.
    void ExpectEveryLine(CaseKind kind, const QString &number, const QString &type,
                         const QString &courtCode);
    /// The window shows what ExpectEveryLine let the court answer.
    static void CheckEveryTab(const CaseWindow *window, CaseKind kind);

    /// The captions behind the Summary.
    static QStringList CaptionsOfKind(CaseKind kind);
    /// A data row for each of the two windows.
    static void EachWindow();
    static bool IsSeen(const QWidget *window, const char *name);
};
