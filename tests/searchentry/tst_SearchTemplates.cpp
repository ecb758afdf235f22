#include "searchentry/SearchTemplates.h"

#include "courts/CaseTypes.h"
#include "courts/Counties.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
const QString iniFile = u"templates.ini"_s;

QStringList names()
{
    QStringList all;
    for (const SearchTemplate &one : SearchTemplates())
        all.append(one.Name);
    return all;
}
} // namespace

class tst_SearchTemplates : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { folder = std::make_unique<TestFolder>(); }
    void cleanup() { folder.reset(); }

    void aTemplateWithItsLists();
    void whichLettersNameATemplate_data();
    void whichLettersNameATemplate();
    void atMost25OfThe26Letters();
    void aTemplateWithoutASectionHasEmptyLists();
    void aMissingFileGivesAnEmptyList();
    void binaryRubbishIsNoTemplate();
    void anUnreadableFileGivesAnEmptyList();
    void loadingAgainReplacesTheList();
    void theInstalledTemplatesNameWhatIsThere();

    void delimitedField_data();
    void delimitedField();
    void rowsOfATemplate_data();
    void rowsOfATemplate();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_SearchTemplates::aTemplateWithItsLists()
{
    folder->Write(iniFile, "[WaSup]\r\na=Sound\r\nb=East\r\n"
                           "[Sound]\r\nJuris=King,Pierce\r\nCases=Civil,Probate\r\n"
                           "[East]\r\nJuris=Adams,\r\nCases=Criminal,\r\n");
    QCOMPARE(LoadTemplates(), 2);
    QCOMPARE(names(), (QStringList{u"Sound"_s, u"East"_s}));
    const SearchTemplate *east = SearchTemplateByName(u"East"_s);
    QVERIFY(east);
    QCOMPARE(east->Juris, u"Adams,"_s);
    QCOMPARE(east->Cases, u"Criminal,"_s);
    QCOMPARE(SearchTemplates()[0].Juris, u"King,Pierce"_s);
    QCOMPARE(SearchTemplates()[0].Cases, u"Civil,Probate"_s);
    QCOMPARE(SearchTemplateByName(u"West"_s), nullptr);
}

void tst_SearchTemplates::whichLettersNameATemplate_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("found");
    QTest::newRow("a gap") << QByteArray("[WaSup]\na=One\nd=Two\n")
                           << QStringList{u"One"_s, u"Two"_s};
    QTest::newRow("a value of 0") << QByteArray("[WaSup]\na=0\nb=Two\n") << QStringList{u"Two"_s};
    QTest::newRow("an empty value") << QByteArray("[WaSup]\na=\nb=Two\n") << QStringList{u"Two"_s};
    QTest::newRow("by the letters, not by the lines")
        << QByteArray("[WaSup]\nz=Last\na=First\n") << QStringList{u"First"_s, u"Last"_s};
    QTest::newRow("capitals") << QByteArray("[wasup]\nA=One\n") << QStringList{u"One"_s};
    QTest::newRow("keys of two letters") << QByteArray("[WaSup]\naa=One\n1=Two\n") << QStringList();
    QTest::newRow("another section") << QByteArray("[OrSup]\na=One\n") << QStringList();
    QTest::newRow("an empty file") << QByteArray() << QStringList();
}

void tst_SearchTemplates::whichLettersNameATemplate()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, found);
    folder->Write(iniFile, text);
    QCOMPARE(LoadTemplates(), static_cast<int>(found.size()));
    QCOMPARE(names(), found);
}

void tst_SearchTemplates::atMost25OfThe26Letters()
{
    QByteArray text("[WaSup]\r\n");
    for (char letter = 'a'; letter <= 'z'; ++letter)
        text += QByteArray(1, letter) + "=Template " + QByteArray(1, letter) + "\r\n";
    folder->Write(iniFile, text);
    QCOMPARE(LoadTemplates(), 25);
    QCOMPARE(SearchTemplates().size(), 25);
    QCOMPARE(SearchTemplates().last().Name, u"Template y"_s);
    // A letter that holds none is none of the 25.
    folder->Write(iniFile, text.replace("c=Template c", "c=0"));
    QCOMPARE(LoadTemplates(), 25);
    QCOMPARE(SearchTemplates().last().Name, u"Template z"_s);
}

void tst_SearchTemplates::aTemplateWithoutASectionHasEmptyLists()
{
    folder->Write(iniFile, "[WaSup]\r\na=One\r\n");
    QCOMPARE(LoadTemplates(), 1);
    QCOMPARE(SearchTemplates()[0].Juris, QString());
    QCOMPARE(SearchTemplates()[0].Cases, QString());
}

void tst_SearchTemplates::aMissingFileGivesAnEmptyList()
{
    LoadTemplates();
    folder->Remove(iniFile);
    QCOMPARE(LoadTemplates(), 0);
    QVERIFY(SearchTemplates().isEmpty());
    QCOMPARE(folder->Log(), QStringList());
}

void tst_SearchTemplates::binaryRubbishIsNoTemplate()
{
    QByteArray rubbish;
    for (int i = 0; i < 20'000; ++i)
        rubbish.append(static_cast<char>((i * 7919 + i / 256) & 0xFF));
    folder->Write(iniFile, rubbish);
    QCOMPARE(LoadTemplates(), 0);
    // What can be read among it is read.
    folder->Write(iniFile, rubbish + "\r\n[WaSup]\r\na=One\r\n[One]\r\nJuris=King\r\n" + rubbish);
    QCOMPARE(LoadTemplates(), 1);
    QCOMPARE(names(), QStringList{u"One"_s});
    QCOMPARE(SearchTemplates()[0].Juris, u"King"_s);
}

void tst_SearchTemplates::anUnreadableFileGivesAnEmptyList()
{
    MakeUnreadable(folder->Path(iniFile));
    QCOMPARE(LoadTemplates(), 0);
}

void tst_SearchTemplates::loadingAgainReplacesTheList()
{
    folder->Write(iniFile, "[WaSup]\r\na=One\r\nb=Two\r\n");
    QCOMPARE(LoadTemplates(), 2);
    folder->Write(iniFile, "[WaSup]\r\na=Three\r\n");
    QCOMPARE(LoadTemplates(), 1);
    QCOMPARE(names(), QStringList{u"Three"_s});
}

void tst_SearchTemplates::theInstalledTemplatesNameWhatIsThere()
{
    LoadWaCaseTypes();
    QVERIFY(LoadTemplates() > 0);
    for (const SearchTemplate &one : SearchTemplates()) {
        QCOMPARE(RowsOfTemplate(one.Juris, WaCountyNames()).size(), one.Juris.split(u',').size());
        QCOMPARE(RowsOfTemplate(one.Cases, CaseTypesOf(u"WASUP"_s)).size(),
                 one.Cases.split(u',').size());
    }
}

void tst_SearchTemplates::delimitedField_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("delimiter");
    QTest::addColumn<int>("n");
    QTest::addColumn<QString>("field");
    QTest::newRow("the first") << u"King,Pierce,Adams"_s << u","_s << 1 << u"King"_s;
    QTest::newRow("in the middle") << u"King,Pierce,Adams"_s << u","_s << 2 << u"Pierce"_s;
    QTest::newRow("the last") << u"King,Pierce,Adams"_s << u","_s << 3 << u"Adams"_s;
    QTest::newRow("one too many") << u"King,Pierce,Adams"_s << u","_s << 4 << u""_s;
    QTest::newRow("an empty field") << u"King,,Adams"_s << u","_s << 2 << u""_s;
    QTest::newRow("behind an empty field") << u"King,,Adams"_s << u","_s << 3 << u"Adams"_s;
    QTest::newRow("behind the last delimiter") << u"King,"_s << u","_s << 2 << u""_s;
    QTest::newRow("a list of one") << u"King,"_s << u","_s << 1 << u"King"_s;
    QTest::newRow("in front of the first delimiter") << u",King"_s << u","_s << 1 << u""_s;
    QTest::newRow("an empty text") << u""_s << u","_s << 1 << u""_s;
    QTest::newRow("a text without the delimiter") << u"King"_s << u","_s << 1 << u""_s;
    QTest::newRow("a count of 0") << u"King,Pierce"_s << u","_s << 0 << u""_s;
    QTest::newRow("a count below 0") << u"King,Pierce"_s << u","_s << -1 << u""_s;
    QTest::newRow("blanks stay") << u" King , Pierce "_s << u","_s << 2 << u" Pierce "_s;
    QTest::newRow("a delimiter of two characters") << u"A, B,C, D"_s << u", "_s << 2 << u"B,C"_s;
    QTest::newRow("an empty delimiter") << u"King"_s << u""_s << 2 << u""_s;
}

void tst_SearchTemplates::delimitedField()
{
    QFETCH(QString, text);
    QFETCH(QString, delimiter);
    QFETCH(int, n);
    QFETCH(QString, field);
    QCOMPARE(GetDelimitedField(text, delimiter, n), field);
}

void tst_SearchTemplates::rowsOfATemplate_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<QList<int>>("rows");
    QTest::newRow("several") << u"Adams,King"_s << QList<int>{0, 2};
    QTest::newRow("in the order of the items") << u"King,Adams"_s << QList<int>{0, 2};
    QTest::newRow("a county no longer in the list") << u"Adams,Atlantis,King"_s << QList<int>{0, 2};
    QTest::newRow("only unknown counties") << u"Atlantis,Mu"_s << QList<int>();
    QTest::newRow("one, closed by a comma") << u"King,"_s << QList<int>{2};
    QTest::newRow("one without a comma") << u"King"_s << QList<int>{2};
    QTest::newRow("an empty name between") << u"Adams,,King"_s << QList<int>{0, 2};
    QTest::newRow("blanks around a name") << u" Adams , San Juan "_s << QList<int>{0, 3};
    QTest::newRow("in another case") << u"ADAMS,king"_s << QList<int>{0, 2};
    QTest::newRow("part of a name") << u"San,Ada"_s << QList<int>();
    QTest::newRow("named twice") << u"King,King"_s << QList<int>{2};
    QTest::newRow("nothing") << u""_s << QList<int>();
}

void tst_SearchTemplates::rowsOfATemplate()
{
    QFETCH(QString, list);
    QFETCH(QList<int>, rows);
    QCOMPARE(RowsOfTemplate(list, {u"Adams"_s, u"Benton"_s, u"King"_s, u"San Juan"_s, u""_s}),
             rows);
}

HALVANE_TEST(tst_SearchTemplates)

#include "tst_SearchTemplates.moc"
