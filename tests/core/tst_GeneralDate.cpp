#include "core/GeneralDate.h"

#include "core/Windows1252.h"
#include "support/HalvaneTest.h"

#include <QRegularExpression>
#include <QTest>
#include <QTimeZone>

using namespace Qt::StringLiterals;

// Date and time in the form of every locale that there is.

namespace {
const QDateTime afternoon({2009, 3, 4}, {17, 8, 9});
const QDateTime morning({2009, 3, 4}, {5, 8, 9});

QString spelled(const QDateTime &moment, const QLocale &locale, ClockTime time)
{
    return GeneralDate(moment, time, locale);
}

/// The numbers of the text, without zeros ahead, as they stand.
QStringList numbersIn(const QString &text)
{
    static const QRegularExpression number(u"[0-9]+"_s);
    QStringList numbers;
    for (const QRegularExpressionMatch &match : number.globalMatch(text))
        numbers.append(QString::number(match.captured().toInt()));
    return numbers;
}

/// What is wrong with the text of a moment at 17:08:09; "" when nothing is.
QString wrongIn(const QString &text, const QLocale &locale, ClockTime time)
{
    if (!FitsWindows1252(text) || FromWindows1252(ToWindows1252(text)) != text)
        return u"cannot be written: "_s;
    if (text != text.simplified() || text.contains(u"()") || text.contains(u"[]")
        || text.endsWith(u','))
        return u"something is left of a zone: "_s;
    for (const QString &zone : {u"PST"_s, u"GMT"_s, u"UTC"_s, u"America"_s}) {
        if (text.contains(zone))
            return u"tells a zone: "_s;
    }
    const bool seconds = time == ClockTime::WithSeconds;
    const QString tail = seconds ? u" 8 9"_s : u" 8"_s;
    QStringList numbers = numbersIn(text);
    QStringList ofTime;
    for (int i = 0; i < (seconds ? 3 : 2) && !numbers.isEmpty(); ++i)
        ofTime.prepend(numbers.takeLast());
    if (ofTime.join(u' ') != u"17"_s + tail && ofTime.join(u' ') != u"5"_s + tail)
        return u"not the time: "_s;
    numbers.sort();
    const QString month = locale.monthName(3, QLocale::ShortFormat);
    const QString ofDate = numbers.join(u' ');
    if (ofDate != u"2009 3 4" && (ofDate != u"2009 4" || !text.contains(month)))
        return u"not the date: "_s;
    static const QRegularExpression fourDigits(u"(^|[^0-9])2009([^0-9]|$)"_s);
    return text.contains(fourDigits) ? QString() : u"no year of four digits: "_s;
}
} // namespace

class tst_GeneralDate : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void inEveryLocale_data();
    void inEveryLocale();
    void spellings_data();
    void spellings();
    void theSystemsLocaleIsMeant();
    void earlyYears();
};

void tst_GeneralDate::inEveryLocale_data()
{
    QTest::addColumn<ClockTime>("time");
    QTest::newRow("with seconds") << ClockTime::WithSeconds;
    QTest::newRow("to the minute") << ClockTime::ToTheMinute;
}

void tst_GeneralDate::inEveryLocale()
{
    QFETCH(ClockTime, time);
    const QList<QLocale> locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    QVERIFY(locales.size() > 500);
    const QTimeZone zone("America/Los_Angeles");
    QStringList wrong;
    for (const QLocale &locale : locales) {
        for (const QDateTime &moment :
             {afternoon, QDateTime(afternoon.date(), afternoon.time(), zone),
              QDateTime::fromString(u"2009-03-04T17:08:09Z"_s, Qt::ISODate)}) {
            const QString text = spelled(moment, locale, time);
            const QString what = wrongIn(text, locale, time);
            if (!what.isEmpty())
                wrong.append(locale.name() + u' ' + what + text);
        }
        if (spelled(afternoon, locale, time) == spelled(morning, locale, time))
            wrong.append(locale.name() + u" morning and afternoon are the same"_s);
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
}

void tst_GeneralDate::spellings_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("withSeconds");
    QTest::addColumn<QString>("toTheMinute");
    const auto row = [](const char *locale, const QString &withSeconds,
                        const QString &toTheMinute) {
        QTest::newRow(locale) << QString::fromLatin1(locale) << withSeconds << toTheMinute;
    };
    row("C", u"4 Mar 2009 17:08:09"_s, u"4 Mar 2009 17:08"_s);
    row("en_US", u"3/4/2009 5:08:09 PM"_s, u"3/4/2009 5:08 PM"_s);
    row("en_GB", u"04/03/2009 17:08:09"_s, u"04/03/2009 17:08"_s);
    row("de_DE", u"04.03.2009 17:08:09"_s, u"04.03.2009 17:08"_s);
    row("hr_BA", u"4. 3. 2009. 17:08:09"_s, u"4. 3. 2009. 17:08"_s);
    // A zone in brackets, behind a comma, ahead of the time, beside words.
    row("ca_ES", u"4/3/2009 17:08:09"_s, u"4/3/2009 17:08"_s);
    row("be_BY", u"4.03.2009 17:08:09"_s, u"4.03.2009 17:08"_s);
    row("nus_SS", u"4/03/2009 17:08:09"_s, u"4/03/2009 17:08"_s);
    row("fr_CA", u"2009-03-04 17 h 08 min 09 s"_s, u"2009-03-04 17 h 08"_s);
    row("nn_NO", u"04.03.2009 kl. 17:08:09"_s, u"04.03.2009 17:08"_s);
    // Letters that the code page does not have: in the date, in the time, for the half of the day.
    row("bg_BG", u"4.03.2009 17:08:09"_s, u"4.03.2009 17:08"_s);
    row("ja_JP", u"2009/03/04 17:08:09"_s, u"2009/03/04 17:08"_s);
    row("ko_KR", u"2009. 3. 4. 17:08:09"_s, u"2009. 3. 4. 17:08"_s);
    row("zh_TW", u"2009/3/4 17:08:09"_s, u"2009/3/4 17:08"_s);
    row("el_GR", u"4/3/2009 17:08:09"_s, u"4/3/2009 17:08"_s);
    // Digits of its own, and marks of direction.
    row("ar_EG", u"4/3/2009 17:08:09"_s, u"4/3/2009 17:08"_s);
    row("fa_IR", u"2009/3/4 17:08:09"_s, u"2009/3/4 17:08"_s);
    // Minutes have two digits, whatever the locale's form.
    row("yo_NG", u"4/3/2009 17:08:09"_s, u"4/3/2009 17:08"_s);
}

void tst_GeneralDate::spellings()
{
    QFETCH(QString, locale);
    const QLocale spoken(locale);
    QTEST(spelled(afternoon, spoken, ClockTime::WithSeconds), "withSeconds");
    QTEST(spelled(afternoon, spoken, ClockTime::ToTheMinute), "toTheMinute");
}

void tst_GeneralDate::theSystemsLocaleIsMeant()
{
    QCOMPARE(GeneralDate(afternoon), spelled(afternoon, QLocale::system(), ClockTime::WithSeconds));
    // A full minute has its seconds, too, and midnight its time.
    const QDateTime midnight({2009, 3, 4}, {0, 0});
    const QLocale german(QLocale::German, QLocale::Germany);
    QCOMPARE(spelled(midnight, german, ClockTime::WithSeconds), u"04.03.2009 00:00:00"_s);
    const QLocale american(QLocale::English, QLocale::UnitedStates);
    QCOMPARE(spelled(midnight, american, ClockTime::WithSeconds), u"3/4/2009 12:00:00 AM"_s);
    QCOMPARE(spelled(midnight.addSecs(12 * 3600), american, ClockTime::WithSeconds),
             u"3/4/2009 12:00:00 PM"_s);
}

void tst_GeneralDate::earlyYears()
{
    QCOMPARE(
        spelled(QDateTime({997, 12, 31}, {1, 2, 3}), QLocale(u"en_US"_s), ClockTime::WithSeconds),
        u"12/31/0997 1:02:03 AM"_s);
}

HALVANE_TEST(tst_GeneralDate)
#include "tst_GeneralDate.moc"
