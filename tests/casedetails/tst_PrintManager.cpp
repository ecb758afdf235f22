// The window that asks which tabs go into the report of a case.

#include "reports/SampleCases.h"
#include "reports/dlgPrintMgr.h"
#include "support/HalvaneTest.h"
#include "support/WindowUser.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QSignalSpy>
#include <QTest>

namespace {
constexpr int boxCount = 10;

QCheckBox *boxAt(const dlgPrintMgr &dialog, int index)
{
    return Child<QCheckBox>(&dialog, qPrintable(u"chkTab_%1"_s.arg(index)));
}

/// The captions of the boxes for which this holds.
template<typename Holds>
QStringList boxesThat(const dlgPrintMgr &dialog, const Holds &holds)
{
    QStringList captions;
    for (int i = 0; i < boxCount; ++i) {
        if (const QCheckBox *box = boxAt(dialog, i); holds(box))
            captions.append(box->text());
    }
    return captions;
}

QStringList ticked(const dlgPrintMgr &dialog)
{
    return boxesThat(dialog, [](const QCheckBox *box) { return box->isChecked(); });
}

QStringList captionsOf(const QList<CaseTab> &tabs)
{
    QStringList captions;
    for (const CaseTab tab : tabs)
        captions.append(CaseTabRowOf(tab).caption.toString());
    return captions;
}

const QStringList allCaptions{u"Summary"_s,  u"Names"_s,    u"Docket"_s,     u"Judgments"_s,
                              u"Charges"_s,  u"Sentence"_s, u"Accounting"_s, u"Finance"_s,
                              u"Schedule"_s, u"Documents"_s};
} // namespace

class tst_PrintManager : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void itsTexts_data();
    void itsTexts();
    void everythingIsTickedAtFirst();
    void whatItIsFor_data();
    void whatItIsFor();
    void whatIsOffered_data();
    void whatIsOffered();
    void theButtonsForAllLeaveWhatIsOff();
    void theAnswer_data();
    void theAnswer();
    void everythingCanBeRead();
};

void tst_PrintManager::itsTexts_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("text");
    QTest::newRow("select") << u"cmdSelectAll"_s << u"Select &All"_s;
    QTest::newRow("clear") << u"cmdClearAll"_s << u"Clea&r All"_s;
    QTest::newRow("cancel") << u"CancelButton"_s << u"Cancel"_s;
    QTest::newRow("OK") << u"OKButton"_s << u"OK"_s;
    QTest::newRow("header") << u"lblCaseDetailsHdr"_s << u"Print Manager"_s;
    QTest::newRow("note") << u"Label2"_s << u"Note:"_s;
    QTest::newRow("what the note says")
        << u"Label1"_s
        << u"Only Case Details that have been retrieved are available for printing. "_s;
    for (int i = 0; i < boxCount; ++i)
        QTest::addRow("box %d", i) << u"chkTab_%1"_s.arg(i) << allCaptions.at(i);
}

void tst_PrintManager::itsTexts()
{
    QFETCH(QString, control);
    QFETCH(QString, text);
    const dlgPrintMgr dialog;
    QCOMPARE(dialog.windowTitle(), u"Halvane - Print Mgr."_s);
    QCOMPARE(Child<QGroupBox>(&dialog, "Frame1")->title(),
             u"Select Case Details to include with this Report:"_s);
    QCOMPARE(TextOf(&dialog, qPrintable(control)), text);
}

void tst_PrintManager::everythingIsTickedAtFirst()
{
    const dlgPrintMgr dialog;
    QCOMPARE(ticked(dialog), allCaptions);
    QCOMPARE(dialog.Tag, QString());
}

void tst_PrintManager::whatItIsFor_data()
{
    QTest::addColumn<bool>("saves");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("header");
    QTest::addColumn<QString>("note");
    QTest::newRow("print")
        << false << u"Halvane - Print Report"_s << u"Print Manager"_s
        << u"Only Case Details that have been retrieved are available for printing. "_s;
    QTest::newRow("save")
        << true << u"Save Report To File"_s << u"Halvane - Save Report to File"_s
        << u"Only Case Details that have been retrieved are available for Saving. "_s;
}

void tst_PrintManager::whatItIsFor()
{
    QFETCH(bool, saves);
    dlgPrintMgr dialog;
    dialog.SetPurpose(saves ? dlgPrintMgr::Purpose::Save : dlgPrintMgr::Purpose::Print);
    QTEST(dialog.windowTitle(), "caption");
    QTEST(TextOf(&dialog, "lblCaseDetailsHdr"), "header");
    QTEST(TextOf(&dialog, "Label1"), "note");
}

void tst_PrintManager::whatIsOffered_data()
{
    QTest::addColumn<QString>("sample");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QStringList>("on");
    QStringList withoutFinance = allCaptions;
    withoutFinance.removeAll(u"Finance"_s);
    QTest::newRow("superior") << u"superior"_s << allCaptions << withoutFinance;
    QTest::newRow("civil") << u"civil"_s
                           << QStringList{u"Summary"_s, u"Names"_s, u"Docket"_s, u"Judgments"_s}
                           << QStringList{u"Summary"_s, u"Names"_s, u"Docket"_s, u"Judgments"_s};
    // Its Violations came in part and are kept; its Docket never came.
    QTest::newRow("non-civil") << u"non-civil"_s
                               << QStringList{u"Summary"_s, u"Names"_s, u"Docket"_s,
                                              u"Violations"_s}
                               << QStringList{u"Summary"_s, u"Names"_s, u"Violations"_s};
    QTest::newRow("bankruptcy") << u"bankruptcy"_s << allCaptions << QStringList{u"Summary"_s};
}

void tst_PrintManager::whatIsOffered()
{
    QFETCH(QString, sample);
    QFETCH(QStringList, on);
    dlgPrintMgr dialog;
    dialog.Offer(SampleCase(sample));
    const auto isShown = [&dialog](const QCheckBox *box) { return box->isVisibleTo(&dialog); };
    QTEST(boxesThat(dialog, isShown), "shown");
    QCOMPARE(boxesThat(dialog, [](const QCheckBox *box) { return box->isEnabled(); }), on);
    QCOMPARE(ticked(dialog), on);
    QCOMPARE(captionsOf(dialog.Chosen()), on);
}

void tst_PrintManager::theButtonsForAllLeaveWhatIsOff()
{
    dlgPrintMgr dialog;
    dialog.Offer(BankruptcyList());
    dialog.show();
    Click(&dialog, "cmdClearAll");
    QCOMPARE(ticked(dialog), QStringList());
    Click(&dialog, "cmdSelectAll");
    QCOMPARE(ticked(dialog), QStringList{u"Summary"_s});
    // A box that is off keeps its tick, whoever gave it.
    boxAt(dialog, 1)->setChecked(true);
    Click(&dialog, "cmdClearAll");
    QCOMPARE(ticked(dialog), QStringList{u"Names"_s});
}

void tst_PrintManager::theAnswer_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("nothingTicked");
    QTest::addColumn<QString>("tag");
    QTest::newRow("OK") << u"OKButton"_s << false << u"true"_s;
    QTest::newRow("OK without a tick") << u"OKButton"_s << true << u"false"_s;
    QTest::newRow("Cancel") << u"CancelButton"_s << false << u""_s;
    QTest::newRow("Esc") << u""_s << false << u""_s;
}

void tst_PrintManager::theAnswer()
{
    QFETCH(QString, button);
    QFETCH(bool, nothingTicked);
    dlgPrintMgr dialog;
    dialog.Offer(SuperiorCase());
    dialog.show();
    const QSignalSpy finished(&dialog, &QDialog::finished);
    if (nothingTicked)
        Click(&dialog, "cmdClearAll");
    QCOMPARE(dialog.Tag, QString());
    if (button.isEmpty())
        QTest::keyClick(&dialog, Qt::Key_Escape);
    else
        Click(&dialog, qPrintable(button));
    QTEST(dialog.Tag, "tag");
    QVERIFY(dialog.isHidden());
    QCOMPARE(finished.size(), 1);
}

void tst_PrintManager::everythingCanBeRead()
{
    dlgPrintMgr dialog;
    dialog.SetPurpose(dlgPrintMgr::Purpose::Save);
    dialog.Offer(SuperiorCase());
    dialog.show();
    QVERIFY(dialog.size().width() >= dialog.minimumSizeHint().width());
    QVERIFY(dialog.size().height() >= dialog.minimumSizeHint().height());
    for (const QWidget *widget : dialog.findChildren<QWidget *>()) {
        if (widget->objectName().startsWith(u"qt_"_s) || !widget->isVisible())
            continue;
        const QRect place(widget->mapTo(&dialog, QPoint()), widget->size());
        QVERIFY2(dialog.rect().contains(place), qPrintable(widget->objectName()));
    }
}

HALVANE_TEST(tst_PrintManager)
#include "tst_PrintManager.moc"
