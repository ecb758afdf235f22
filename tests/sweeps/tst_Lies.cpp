// A server that lies: in each field of each reply, each text that could be taken for something else
// than text, and then everything that the program does with what came.

#include "app/Startup.h"
#include "casedetails/MadeCases.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "core/Windows1252.h"
#include "courts/DiscisCourts.h"
#include "namesearch/frmDiscisNCNameResults.h"
#include "namesearch/frmDiscisNameResults.h"
#include "namesearch/frmNameSearchResults.h"
#include "support/HalvaneTest.h"
#include "support/SweepExtent.h"
#include "sweeps/HostileTexts.h"
#include "sweeps/LiedToUser.h"

#include <QElapsedTimer>
#include <QTest>

namespace {
NameResultsWindow *indexResults()
{
    auto *window = new frmNameSearchResults(u"WA"_s, true);
    window->chkIndexSearch = true;
    return window;
}

/// What the user does while the court lies somewhere in it.
struct Scene
{
    const char *name;
    void (*play)(LiedToUser &user);
};

constexpr std::array<Scene, 17> scenes{{
    {"login", [](LiedToUser &user) { user.LogIn(); }},
    {"Superior",
     [](LiedToUser &user) {
         user.Search(new frmNameSearchResults(u"WA"_s),
                     u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,Criminal,¦¦¦"_s);
     }},
    {"error row",
     [](LiedToUser &user) {
         user.Search(new frmNameSearchResults(u"WA"_s),
                     u"WASUP¦SEARCH¦BADROW¦¦¦¦King,¦Civil,¦¦¦"_s);
     }},
    {"Oregon",
     [](LiedToUser &user) {
         user.Search(new frmNameSearchResults(u"OR"_s),
                     u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦MCR C¦CV,DO,¦1990¦2008¦"_s);
     }},
    {"Idaho",
     [](LiedToUser &user) {
         user.Search(new frmNameSearchResults(u"ID"_s),
                     u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦*ALL¦CR,¦¦¦"_s);
     }},
    {"index",
     [](LiedToUser &user) {
         user.Search(indexResults(), u"INDEX~SEARCH~SMITH~JOHN~Q~~King,~Criminal,Judgment,~1970~"
                                     "2005~LL=1~UL=500~"_s);
     }},
    {"bankruptcy",
     [](LiedToUser &user) {
         user.Search(new frmNameSearchResults(u"ORBK"_s),
                     u"BKRPT~SEARCH~SMITH~JOHN~Q~~OR~*ALL~1980~2005~"_s);
     }},
    {"district, civil",
     [](LiedToUser &user) {
         user.Search(new frmDiscisNameResults, u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦KSD¦CV¦CNCI¦"_s);
     }},
    {"district, non-civil",
     [](LiedToUser &user) {
         user.Search(new frmDiscisNCNameResults, u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦KSD¦IN¦CNCI¦"_s);
     }},
    {"duplicate names",
     [](LiedToUser &user) {
         user.Search(new frmDiscisNCNameResults, u"WADISCIS¦SEARCH¦DUPES¦JOHN¦¦*SW¦IN¦SNCI¦"_s);
     }},
    {"case, criminal",
     [](LiedToUser &user) { user.OpenCase(MadeStateCase(u"WA"_s, u"94-1-00042-1"_s, u"King"_s)); }},
    {"case, Oregon",
     [](LiedToUser &user) {
         user.OpenCase(MadeStateCase(u"OR"_s, u"CV08060677"_s, u"Multnomah"_s));
     }},
    {"case, Idaho",
     [](LiedToUser &user) {
         user.OpenCase(MadeStateCase(u"ID"_s, u"CR-1998-0002546-IN"_s, u"Ada"_s));
     }},
    {"case, district civil",
     [](LiedToUser &user) {
         user.OpenCase(MadeDistrictCase<frmCivilCaseDetails>(u"5KS000123"_s, u"CV"_s));
     }},
    {"case, district non-civil",
     [](LiedToUser &user) {
         user.OpenCase(MadeDistrictCase<frmNCCaseDetails>(u"3YH809020"_s, u"IN"_s));
     }},
    {"case, bankruptcy",
     [](LiedToUser &user) { user.OpenCase(MadeBankruptcyCase(u"99-20077"_s)); }},
    {"documents",
     [](LiedToUser &user) {
         user.RetrieveDocuments(MadeStateCase(u"WA"_s, u"98-2-00017-7"_s, u"King"_s));
     }},
}};

/// Where a lie can stand in a scene: a field of the reply to a request.
struct Place
{
    int scene;
    int request;
    int field;
};

/// The text as it stands in a line of the settings.
QString inOneLine(const QByteArray &text)
{
    QByteArray line = text.trimmed();
    for (const char sign : {'\r', '\n', '\0'})
        line.replace(sign, ' ');
    return FromWindows1252(line);
}

/// The keys that may be there now: those of a login, and what the court named itself when it lied
/// in a parameter.
QStringList keysThatMayCome(int scene, const QByteArrayList &lied)
{
    QStringList keys;
    if (scene != 0)
        return keys;
    keys = {u"[security]/UserName"_s, u"[security]/UserPwd"_s};
    for (const QByteArray &token : lied) {
        const QByteArrayList parts = token.split('=');
        if (parts.size() > 2)
            keys.append(u'[' + inOneLine(parts[0]) + u"]/"_s + inOneLine(parts[1]));
    }
    return keys;
}

/// So that no scene is all there is of a short sweep.
constexpr int stride(Extent extent)
{
    switch (extent) {
    case Extent::Short:
        return 997;
    case Extent::Ci:
        return 61;
    case Extent::Whole:
        break;
    }
    return 1;
}
} // namespace

/// A failing case prints its row; HALVANE_SWEEP=whole test_sweeps_lies tst_Lies 'lie:<row>' repeats
/// it.
class tst_Lies : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void lie_data();
    void lie();
    void everyTextCameToLight();

private:
    QList<Place> places();

    QList<bool> cameToLight = QList<bool>(hostileTexts.size());
    QList<int> tried = QList<int>(hostileTexts.size());
};

void tst_Lies::initTestCase()
{
    WireWindows();
}

/// Each scene played by an honest court says what there is to lie in.
QList<Place> tst_Lies::places()
{
    QList<Place> all;
    for (int scene = 0; scene < static_cast<int>(scenes.size()); ++scene) {
        LiedToUser user{Lie()};
        scenes.at(static_cast<size_t>(scene)).play(user);
        const QList<int> fields = user.Court().Fields();
        for (int request = 0; request < fields.size(); ++request) {
            for (int field = 0; field < fields[request]; ++field)
                all.append({scene, request, field});
        }
    }
    return all;
}

void tst_Lies::lie_data()
{
    QTest::addColumn<int>("scene");
    QTest::addColumn<int>("request");
    QTest::addColumn<int>("field");
    QTest::addColumn<int>("text");
    const QList<Place> all = places();
    const int every = stride(SweepExtent());
    int number = 0;
    for (const Place &place : all) {
        for (int text = 0; text < static_cast<int>(hostileTexts.size()); ++text) {
            if (number++ % every != 0)
                continue;
            QTest::addRow("%s, request %d, field %d, %s",
                          scenes.at(static_cast<size_t>(place.scene)).name, place.request,
                          place.field, hostileTexts.at(static_cast<size_t>(text)).name)
                << place.scene << place.request << place.field << text;
        }
    }
    qInfo("%d of %d cases", (number + every - 1) / every, number);
}

void tst_Lies::lie()
{
    QFETCH(int, scene);
    QFETCH(int, request);
    QFETCH(int, field);
    QFETCH(int, text);
    const HostileText &hostile = hostileTexts.at(static_cast<size_t>(text));
    Lie lie;
    lie.request = request;
    lie.field = field;
    lie.text = hostile.make();
    // What goes on in one way for every text would leave out the other ways for all of them.
    const int turn = request + field + text;
    lie.behind = turn % 2 == 1;
    const bool isLong = lie.text.size() > 10'000;
    lie.where = isLong          ? Lie::Where::LastToken
                : turn % 5 == 0 ? Lie::Where::FirstToken
                                : Lie::Where::EveryToken;
    LiedToUser user(lie);
    scenes.at(static_cast<size_t>(scene)).play(user);
    user.UseAll(turn % 7 == 0);
    const QStringList complaints = user.Complaints(keysThatMayCome(scene, user.Court().Lied()));
    QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join(u"; "_s)));
    QVERIFY2(!user.Court().Lied().isEmpty(), "the court was not asked for this");
    ++tried[text];
    cameToLight[text] = cameToLight[text] || user.HasSeen();
}

/// A text that is nowhere to be seen was not looked at either.
void tst_Lies::everyTextCameToLight()
{
    for (int text = 0; text < cameToLight.size(); ++text) {
        if (tried[text] >= 3)
            QVERIFY2(cameToLight[text], hostileTexts.at(static_cast<size_t>(text)).name);
    }
}

HALVANE_TEST(tst_Lies)
#include "tst_Lies.moc"
