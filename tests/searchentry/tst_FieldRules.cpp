#include "searchentry/FieldRules.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
/// A person's name and all that a search of one county needs.
FormEntries complete()
{
    FormEntries entries;
    entries.Names = {u"SMITH"_s, u"JOHN"_s, u"Q"_s, u"JR"_s};
    entries.Counties = {u"King"_s};
    entries.CaseTypes = {u"Civil"_s};
    return entries;
}

const QString required = u"This is a required field and Has a Minimum Length of 1 Character."_s;
const QString noFirstName = u"The FIRST NAME Field Is Empty!"_s;
} // namespace

class tst_FieldRules : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void whatIsRefused_data();
    void whatIsRefused();
    void whatIsAccepted_data();
    void whatIsAccepted();
    void theFirstBrokenRuleIsTold();
};

void tst_FieldRules::whatIsRefused_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<bool>("business");
    QTest::addColumn<QStringList>("counties");
    QTest::addColumn<QStringList>("caseTypes");
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("why");
    QTest::addColumn<QString>("action");
    const QStringList king{u"King"_s};
    const QStringList civil{u"Civil"_s};
    QTest::newRow("a person without a last name")
        << QStringList{u""_s, u"JOHN"_s, u""_s, u""_s} << false << king << civil
        << u"The LAST NAME Field Is Empty!"_s << required
        << u"Please enter a Last Name or Select Cancel to Continue."_s;
    QTest::newRow("a business without a name")
        << QStringList{u""_s, u""_s, u""_s, u""_s} << true << king << civil
        << u"The BUSINESS NAME Field Is Empty!"_s << required
        << u"Please enter a Business Name or Select Cancel to Continue."_s;
    QTest::newRow("a middle initial without a first name")
        << QStringList{u"SMITH"_s, u""_s, u"Q"_s, u""_s} << false << king << civil << noFirstName
        << u"This is a required field when a MIDDLE INITIAL is entered."_s
        << u"Please enter a First Name or Remove the Middle Initial to Continue."_s;
    QTest::newRow("a suffix without a first name")
        << QStringList{u"SMITH"_s, u""_s, u""_s, u"JR"_s} << false << king << civil << noFirstName
        << u"This is a required field when a SUFFIX is entered."_s
        << u"Please enter a First Name or Remove the Suffix to Continue."_s;
    QTest::newRow("no county") << QStringList{u"SMITH"_s, u""_s, u""_s, u""_s} << false
                               << QStringList() << civil << u"You Have Not Selected a County!"_s
                               << u"At least one selection is required when searching County "
                                  "Jurisdictions."_s
                               << u"Please Select a County(s) or Change Jurisidiction to "
                                  "Continue."_s;
    QTest::newRow("no case type") << QStringList{u"SMITH"_s, u""_s, u""_s, u""_s} << false << king
                                  << QStringList() << u"You Have Not Selected a Case Type!"_s
                                  << u"At least one Case Type Must be Selected"_s
                                  << u"Please Select a Case Type(s) to Continue with this "
                                     "Search."_s;
}

void tst_FieldRules::whatIsRefused()
{
    QFETCH(QStringList, names);
    QFETCH(bool, business);
    QFETCH(QStringList, counties);
    QFETCH(QStringList, caseTypes);
    QFETCH(QString, what);
    QFETCH(QString, why);
    QFETCH(QString, action);
    FormEntries entries;
    std::copy(names.begin(), names.end(), entries.Names.begin());
    entries.Business = business;
    entries.Counties = counties;
    entries.CaseTypes = caseTypes;
    const FieldRule *rule = FirstBrokenRule(entries);
    QVERIFY(rule);
    QCOMPARE(rule->what.toString(), what);
    QCOMPARE(rule->why.toString(), why);
    QCOMPARE(rule->action.toString(), action);
}

void tst_FieldRules::whatIsAccepted_data()
{
    QTest::addColumn<int>("change");
    QTest::newRow("everything entered") << 0;
    QTest::newRow("only a last name") << 1;
    QTest::newRow("a business") << 2;
    QTest::newRow("statewide without a county") << 3;
    QTest::newRow("several counties") << 4;
}

void tst_FieldRules::whatIsAccepted()
{
    QFETCH(int, change);
    FormEntries entries = complete();
    if (change == 1)
        entries.Names = {u"SMITH"_s, {}, {}, {}};
    if (change == 2) {
        entries.Business = true;
        entries.Names = {u"ACME"_s, {}, {}, {}};
    }
    if (change == 3) {
        entries.ByCounty = false;
        entries.Counties.clear();
    }
    if (change == 4)
        entries.Counties.append(u"Pierce"_s);
    QCOMPARE(FirstBrokenRule(entries), nullptr);
}

void tst_FieldRules::theFirstBrokenRuleIsTold()
{
    // Each mend uncovers the next one, in the order of the checks.
    FormEntries entries;
    entries.Names = {QString(), QString(), u"Q"_s, u"JR"_s};
    QStringList told;
    const auto tell = [&] {
        const FieldRule *rule = FirstBrokenRule(entries);
        told.append(rule ? rule->what + u" / "_s + rule->why : QString());
    };
    tell();
    entries.Names[0] = u"SMITH"_s;
    tell();
    entries.Names[2].clear();
    tell();
    entries.Names[3].clear();
    tell();
    entries.Counties.append(u"King"_s);
    tell();
    entries.CaseTypes.append(u"Civil"_s);
    tell();
    QCOMPARE(told,
             (QStringList{u"The LAST NAME Field Is Empty! / "_s + required,
                          noFirstName
                              + u" / This is a required field when a MIDDLE INITIAL is "
                                "entered."_s,
                          noFirstName + u" / This is a required field when a SUFFIX is entered."_s,
                          u"You Have Not Selected a County! / At least one selection is "
                          "required when searching County Jurisdictions."_s,
                          u"You Have Not Selected a Case Type! / At least one Case Type Must "
                          "be Selected"_s,
                          QString()}));
}

QTEST_GUILESS_MAIN(tst_FieldRules)
#include "tst_FieldRules.moc"
