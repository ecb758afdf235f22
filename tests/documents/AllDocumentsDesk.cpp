#include "documents/AllDocumentsDesk.h"

#include "core/GlobalState.h"
#include "documents/DocumentName.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

void AllDocumentsTest::cleanup()
{
    delete all;
    DocumentTest::cleanup();
}

DocumentStart AllDocumentsTest::Unavailable(const QString &description)
{
    DocumentStart start = StartOf(u"3"_s, description);
    start.Command = u"1~01/02/2003~3~"_s + description + u'~';
    return start;
}

frmAllDocuments *AllDocumentsTest::Pending(const QList<DocumentStart> &starts)
{
    all = new frmAllDocuments;
    all->Take(starts);
    DocumentDesk::Enqueue(all);
    return all;
}

bool AllDocumentsTest::IsOver() const
{
    return !Global.bSearchInProgress && !all->Timer1->isActive()
           && !ButtonOf(all, "cmdStop")->isEnabled();
}

bool AllDocumentsTest::FinishAll() const
{
    return LinkDesk::WaitUntil([this] { return IsOver(); });
}

void AllDocumentsTest::RunAll(const QList<DocumentStart> &starts)
{
    if (!all) {
        DocumentDesk::ConnectTo(*court);
        Pending(starts);
    }
    DocumentDesk::Begin(all);
    QVERIFY(FinishAll());
}

void AllDocumentsTest::RunAnew(const QList<DocumentStart> &starts)
{
    delete all;
    RunAll(starts);
}

void AllDocumentsTest::Serve(const DocumentStart &start, const QByteArray &body)
{
    court->Expect(RetrievalRequest(start.Command)).ReplyBytes(DocumentReply(body));
}

QString AllDocumentsTest::Missing() const
{
    return all->findChild<QPlainTextEdit *>(u"txtMissing"_s)->toPlainText();
}

QList<QStringList> AllDocumentsTest::List() const
{
    constexpr qsizetype columns = 8;
    QString text = QString::fromUtf8(desk->Document(caseFolder + u"documents.csv"_s));
    text.remove(QChar(QChar::ByteOrderMark));
    QList<QStringList> rows;
    const QStringList lines = text.split(u"\r\n"_s, Qt::SkipEmptyParts);
    for (const QString &line : lines)
        rows.append(line.split(u',').first(columns));
    return rows;
}
