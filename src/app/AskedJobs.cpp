#include "app/AskedJobs.h"

#include "casedetails/CaseJob.h"
#include "core/TextUtilities.h"
#include "documents/AllDocumentsJob.h"
#include "documents/DocumentJob.h"
#include "link/RequestLine.h"
#include "namesearch/NameSearch.h"
#include "records/StartText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
AskedItem itemOf(AskedKind kind, const JobMatter &matter, const QString &code)
{
    AskedItem item;
    item.Kind = kind;
    item.What = matter.What;
    item.Where = matter.Where;
    item.ClientCode = code;
    return item;
}

AskedItem itemOf(AskedKind kind, const Job &job)
{
    return itemOf(kind, job.Matter(), ClientCodeOf(job));
}

AskedItem itemOfSearch(const NameSearch &search)
{
    AskedItem item = itemOf(AskedKind::Search, search);
    item.Origin = search.Record.Origin;
    return item;
}

AskedItem itemOfCase(const CaseJob &ofCase)
{
    CaseStart start = ofCase.Record;
    // The lines of a bankruptcy court come from the search form, or from a list of cases.
    if (ofCase.Record.IsBankruptcy())
        start.TabRequests = ofCase.lboxTabReqQueue.Lines();
    return AskedItemOf(start);
}

AskedItem itemOfDocument(const DocumentJob &document)
{
    AskedItem item = itemOf(AskedKind::Document, document);
    item.Origin = TextOfDocuments({document.Start});
    return item;
}

AskedItem itemOfDocuments(const AllDocumentsJob &documents)
{
    AskedItem item = itemOf(AskedKind::Document, documents);
    item.What = u"All documents of "_s + documents.CaseNumber;
    QList<DocumentStart> starts;
    for (const DocumentItem &one : documents.Items())
        starts.append(one.Start);
    item.Origin = TextOfDocuments(starts);
    return item;
}

int tabsThatCame(const CaseRecord &record)
{
    return static_cast<int>(std::count_if(record.Tabs.begin(), record.Tabs.end(),
                                          [](const CaseTabRecord &tab) { return tab.TabDone; }));
}

int pagesOf(const DocumentJob &document)
{
    bool isNumber = false;
    const int pages = TrimBlanks(document.Start.PageCount).toInt(&isNumber);
    if (!document.Retrieved)
        return 0;
    return isNumber ? pages : -1;
}

/// The summary's line as it goes out.
bool isSummary(const CaseRecord &record, const QString &request)
{
    const QString line = TrimBlanks(record.Tab(CaseTab::Summary).TabRequest);
    const QString &code = record.ClientAcctgCode;
    return request == (code.isEmpty() ? line : EmbedClientCode(line, code));
}
} // namespace

AskedItem AskedItemOf(const CaseStart &start)
{
    AskedItem item = itemOf(AskedKind::Case, MatterOf(start), start.ClientAcctgCode);
    item.Origin = TextOfCaseStart(start);
    // Until the court has answered, a case has no title but the one of a list.
    const QString title = TrimBlanks(start.lblCaseTitle);
    if (!title.isEmpty() && !title.startsWith(u"Pending"))
        item.What += u"  "_s + title;
    return item;
}

std::optional<AskedItem> AskedItemOf(const Job &job)
{
    if (const auto *search = qobject_cast<const NameSearch *>(&job))
        return itemOfSearch(*search);
    if (const auto *ofCase = qobject_cast<const CaseJob *>(&job))
        return itemOfCase(*ofCase);
    if (const auto *document = qobject_cast<const DocumentJob *>(&job))
        return itemOfDocument(*document);
    if (const auto *documents = qobject_cast<const AllDocumentsJob *>(&job))
        return itemOfDocuments(*documents);
    return std::nullopt;
}

QString OutcomeOf(const Job &job)
{
    const auto *document = qobject_cast<const DocumentJob *>(&job);
    if (document && !document->Outcome.isEmpty())
        return document->Outcome;
    const QString heading = u"Status: "_s;
    const QString status = job.Status.Text;
    return TrimBlanks(status.startsWith(heading) ? status.sliced(heading.size()) : status);
}

bool WasCutOff(const Job &job)
{
    if (const auto *search = qobject_cast<const NameSearch *>(&job)) {
        const QList<CourtAnswer> &courts = search->Record.Courts;
        return std::any_of(courts.begin(), courts.end(), [](const CourtAnswer &court) {
            return court.State == AnswerState::Stopped;
        });
    }
    if (const auto *ofCase = qobject_cast<const CaseJob *>(&job))
        return ofCase->Record.SearchStopped || job.KeepsPlace();
    const auto *document = qobject_cast<const DocumentJob *>(&job);
    return document && !document->Retrieved;
}

int CountOf(const Job &job)
{
    if (const auto *search = qobject_cast<const NameSearch *>(&job))
        return search->RowCount();
    if (const auto *ofCase = qobject_cast<const CaseJob *>(&job))
        return tabsThatCame(ofCase->Record);
    if (const auto *document = qobject_cast<const DocumentJob *>(&job))
        return pagesOf(*document);
    if (const auto *documents = qobject_cast<const AllDocumentsJob *>(&job))
        return documents->CountOf(ItemState::Present) + documents->CountOf(ItemState::Retrieved);
    return -1;
}

SentKind SentKindOf(const Job &job, const QString &request)
{
    if (qobject_cast<const NameSearch *>(&job))
        return SentKind::Search;
    if (const auto *ofCase = qobject_cast<const CaseJob *>(&job))
        return isSummary(ofCase->Record, request) ? SentKind::CaseSummary : SentKind::Tab;
    return qobject_cast<const TransferJob *>(&job) ? SentKind::Document : SentKind::Other;
}

QString ClientCodeOf(const Job &job)
{
    if (const auto *search = qobject_cast<const NameSearch *>(&job))
        return search->Record.ClientAcctgCode;
    if (const auto *ofCase = qobject_cast<const CaseJob *>(&job))
        return ofCase->Record.ClientAcctgCode;
    const auto *transfer = qobject_cast<const TransferJob *>(&job);
    return transfer ? transfer->sClientMatterText : QString();
}
