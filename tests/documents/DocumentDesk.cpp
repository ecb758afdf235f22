#include "documents/DocumentDesk.h"

#include "core/GlobalState.h"
#include "core/Platform.h"
#include "core/TextUtilities.h"
#include "documents/frmDocTransfer.h"
#include "jobs/TurnTaking.h"

#include <QApplication>
#include <QDir>
#include <QPushButton>
#include <QTest>

DocumentDesk::DocumentDesk()
{
    ReplaceShell([this](const QString &path) {
        Opened.append(path);
        return ShellOpens;
    });
}

DocumentDesk::~DocumentDesk()
{
    closeWindows();
    ReplaceShell({});
}

frmDocTransfer *DocumentDesk::Pending(const DocumentStart &start)
{
    auto *made = new frmDocTransfer;
    made->Take(start);
    Enqueue(made);
    return made;
}

void DocumentDesk::Begin(JobWindow *window)
{
    window->Timer1->start(1);
}

bool DocumentDesk::Finish(const QPointer<frmDocTransfer> &window)
{
    const bool ended = WaitUntil([&window] {
        return !Global.bSearchInProgress
               && (!window || window->IsUnloaded()
                   || (!window->Timer1->isActive() && !ButtonOf(window, "cmdStop")->isEnabled()));
    });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return ended;
}

QStringList DocumentDesk::Documents(const QString &folder) const
{
    QStringList names =
        QDir(Folder.Path(u"Reports/"_s + folder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    names.removeAll(u"Tempfile.bin"_s);
    return names;
}

void DocumentTest::init()
{
    desk = std::make_unique<DocumentDesk>();
    court = std::make_unique<ScriptedCourt>();
}

void DocumentTest::cleanup()
{
    QCOMPARE(EndDialogue(desk, court), QString());
}

void DocumentTest::Retrieve(const DocumentStart &start)
{
    DocumentDesk::ConnectTo(*court);
    window = DocumentDesk::Pending(start);
    DocumentDesk::Begin(window);
    QVERIFY(DocumentDesk::Finish(window));
}

void DocumentTest::ExpectFailureBox(const std::function<void()> &meanwhile)
{
    if (meanwhile)
        desk->Boxes.Meanwhile(meanwhile);
    desk->Boxes.Expect(u"An error was encountered while retrieving this document. Please retry "
                       "this search at a later time."_s,
                       u"Halvane Document Retrieval Error.."_s, MsgIcon::Exclamation);
}

void DocumentTest::ExpectDeniedBox()
{
    desk->Boxes.Expect(
        u"Halvane Document Retrieval Error. File is already open in Viewer or exists "
        "on this PC in the reports folder already. \nPlease close the file if open "
        "or try opening within the Reports folder in My Computer."_s,
        u"Halvane Document Retrieval Error.."_s, MsgIcon::Exclamation);
}
