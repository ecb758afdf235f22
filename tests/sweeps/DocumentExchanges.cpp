// The documents: one, and all of a case.

#include "core/GlobalState.h"
#include "core/Platform.h"
#include "documents/DocumentDesk.h"
#include "documents/frmAllDocuments.h"
#include "documents/frmDocTransfer.h"
#include "sweeps/ExchangeDesk.h"
#include "sweeps/Exchanges.h"

#include <QDir>
#include <QPlainTextEdit>

#include <algorithm>
#include <optional>

namespace {
const QByteArray body = "%PDF-1.4 | a body, bars and all || %%EOF";
const QString reportsFolder = u"Reports"_s;
const QString caseFolder = u"Reports/King 02-2-00123-4"_s;
const QString dropped = u"Connection to Servers was dropped!. Document Download is Incomplete!"_s;
const QString silent = u"Timed Out waiting for response from Document Server. In ReadDocument()"_s;

QByteArray reply()
{
    return DocumentReply(body, "pdf");
}

/// What becomes of a document whose bytes come so, by the rules of the wire: what is looked for is
/// looked for in each piece by itself.
enum class Fate { Saved, NoHead, Short, Lost, Silent };

/// The first piece with this key tells what is between it and the end, if it holds both.
QByteArray between(const QByteArrayList &pieces, const QByteArray &key, const QByteArray &end)
{
    for (const QByteArray &piece : pieces) {
        const qsizetype at = piece.indexOf(key);
        if (at < 0)
            continue;
        const qsizetype to = piece.indexOf(end, at + key.size());
        return to < 0 ? QByteArray() : piece.mid(at + key.size(), to - at - key.size());
    }
    return {};
}

Fate fateOf(const Came &came)
{
    const bool ended = std::any_of(came.Pieces.begin(), came.Pieces.end(),
                                   [](const auto &piece) { return piece.contains("|EOF~|"); });
    if (!ended)
        return came.Lost ? Fate::Lost : Fate::Silent;
    // A length that no piece says is estimated by the pages, and a piece without it makes it so.
    const bool said = std::any_of(came.Pieces.begin(), came.Pieces.end(),
                                  [](const auto &piece) { return piece.contains("FILELEN="); });
    if (!said)
        return Fate::Short;
    const qint64 length = between(came.Pieces, "FILELEN=", "~TYPE=").toLongLong();
    const bool usable = length > 0 && !between(came.Pieces, "TYPE=", "~").isEmpty();
    return usable ? Fate::Saved : Fate::NoHead;
}

/// What is saved: as many bytes as the court said. A document has no frame, so what stands ahead of
/// its head is taken for its beginning.
QString savedOf(const Came &came)
{
    const QByteArray all = came.Pieces.join();
    const QByteArray data = all.left(all.indexOf("|FILELEN=")) + body;
    return QString::fromLatin1(data.left(body.size()));
}

QString logOf(Fate fate)
{
    return fate == Fate::Lost ? dropped : fate == Fate::Silent ? silent : QString();
}

class DocumentRun : public ExchangeRun
{
public:
    explicit DocumentRun(ExchangeDesk &ownDesk) : desk(ownDesk)
    {
        QDir(desk.User().Folder.Path(reportsFolder)).removeRecursively();
        ReplaceShell([this](const QString &path) {
            opened.append(path);
            return true;
        });
    }
    ~DocumentRun() override
    {
        delete window;
        ReplaceShell({});
    }

    void Announce(const Came &came, BoxAnswers &boxes) override
    {
        if (fateOf(came) != Fate::Saved)
            boxes.Expect(u"An error was encountered while retrieving this document. Please retry "
                         "this search at a later time."_s,
                         u"Halvane Document Retrieval Error.."_s, MsgIcon::Exclamation);
    }
    bool Go() override
    {
        window = DocumentDesk::Pending();
        window->Timer1->start(0);
        return LinkDesk::WaitUntil([this] { return !window || window->IsUnloaded(); });
    }
    bool IsOver() const override { return !Global.bSearchInProgress; }
    QStringList Seen() const override
    {
        const QString file = DocumentFileName() + u".pdf"_s;
        QStringList files = QDir(desk.User().Folder.Path(reportsFolder)).entryList(QDir::Files);
        files.removeAll(u"Tempfile.bin"_s);
        const QByteArray content = desk.User().Folder.Read(reportsFolder + u'/' + file);
        return {Line("files", files.join(u'+')), Line("body", QString::fromLatin1(content)),
                Line("opened", QString::number(opened.size())),
                Line("log", desk.Logged({dropped, silent}).join(u'+'))};
    }
    QStringList Expected(const Came &came) const override
    {
        const Fate fate = fateOf(came);
        const bool saved = fate == Fate::Saved;
        return {Line("files", saved ? DocumentFileName() + u".pdf"_s : QString()),
                Line("body", saved ? savedOf(came) : QString()),
                Line("opened", saved ? u"1"_s : u"0"_s), Line("log", logOf(fate))};
    }

private:
    ExchangeDesk &desk;
    QPointer<frmDocTransfer> window;
    QStringList opened;
};

/// Two documents, of which the one at this place is swept.
class AllDocumentsRun : public ExchangeRun
{
public:
    AllDocumentsRun(ExchangeDesk &ownDesk, int ownPlace) : desk(ownDesk), place(ownPlace)
    {
        QDir(desk.User().Folder.Path(reportsFolder)).removeRecursively();
    }
    ~AllDocumentsRun() override { delete window; }

    bool Go() override
    {
        window = new frmAllDocuments;
        window->Take({StartOf(u"5"_s, u"ONE"_s), StartOf(u"5"_s, u"TWO"_s)});
        SearchDesk::Enqueue(window.data());
        window->Timer1->start(0);
        return LinkDesk::WaitUntil([this] {
            return !window || (!Global.bSearchInProgress && !window->Timer1->isActive());
        });
    }
    JobWindow *Window() const override { return window; }
    bool IsOver() const override { return !Global.bSearchInProgress; }
    QStringList Seen() const override;
    QStringList Expected(const Came &came) const override;

private:
    ExchangeDesk &desk;
    int place;
    QPointer<frmAllDocuments> window;
};

QStringList AllDocumentsRun::Seen() const
{
    QStringList contents;
    const QDir dir(desk.User().Folder.Path(caseFolder));
    const QStringList files = dir.entryList({u"*.pdf"_s}, QDir::Files, QDir::Name);
    for (const QString &file : files)
        contents.append(QString::fromLatin1(desk.User().Folder.Read(caseFolder + u'/' + file)));
    return {Line("status", TextOf(window, "lblStatus") + u'/' + ColourOf(window, "lblStatus")),
            Line("missing", Child<QPlainTextEdit>(window, "txtMissing")->toPlainText()),
            Line("bodies", contents.join(u'+')),
            Line("log", desk.Logged({dropped, silent}).join(u'+'))};
}

/// Which of the two is here, and why the others are not.
QStringList AllDocumentsRun::Expected(const Came &came) const
{
    const Fate fate = fateOf(came);
    QStringList bodies(1, QString::fromLatin1(body));
    QStringList missing;
    QString reason;
    if (fate == Fate::Lost)
        reason = u"The connection to the server was lost."_s;
    else if (fate == Fate::Silent)
        reason = u"The server did not answer in time."_s;
    else if (fate == Fate::Short)
        reason = u"It did not come complete."_s;
    else if (fate == Fate::NoHead)
        reason = u"The server did not say its size, or a type that can be used."_s;
    if (!reason.isEmpty())
        missing.append((place == 0 ? u"01/02/2003 ONE: "_s : u"01/02/2003 TWO: "_s) + reason);
    // What stands behind a reply that may go on is not asked for; nor is anything without a link.
    const bool linkGone = came.Lost;
    if (place == 0 && fate == Fate::Lost)
        missing.append(u"01/02/2003 TWO: "_s + reason);
    else if (place == 0 && linkGone)
        missing.append(u"01/02/2003 TWO: The request could not be sent to the server."_s);
    else if (place == 0 && fate == Fate::Silent)
        missing.append(u"01/02/2003 TWO: The server was still busy with the document before it."_s);
    const qsizetype here = 2 - missing.size();
    if (fate == Fate::Saved)
        bodies.insert(place, savedOf(came));
    bodies = bodies.mid(0, here);
    return {Line("status", u"Status: "_s + QString::number(here) + u" of 2 Documents Are Here."_s
                               + (here == 2 ? u"/blue"_s : u"/red"_s)),
            Line("missing", missing.join(u'\n')), Line("bodies", bodies.join(u'+')),
            Line("log", logOf(fate))};
}
} // namespace

QList<Exchange> DocumentExchanges()
{
    const Exchange document{.Name = u"document"_s,
                            .Request = DocumentRequest(),
                            .Reply = reply(),
                            .NeededTokens = reply().count('|') / 2,
                            .PartHolds = false,
                            .BytesCount = true,
                            .Make = [](ExchangeDesk &desk) -> std::unique_ptr<ExchangeRun> {
                                return std::make_unique<DocumentRun>(desk);
                            }};
    QList<Exchange> all{document};
    for (const int place : {0, 1}) {
        Exchange of = document;
        of.Name = place == 0 ? u"all documents, the first"_s : u"all documents, the last"_s;
        of.Request = DocumentRequest(u"5"_s, place == 0 ? u"ONE"_s : u"TWO"_s);
        of.After = reply();
        if (place == 1)
            of.Before = {reply()};
        of.Make = [place](ExchangeDesk &desk) -> std::unique_ptr<ExchangeRun> {
            return std::make_unique<AllDocumentsRun>(desk, place);
        };
        all.append(of);
    }
    return all;
}
