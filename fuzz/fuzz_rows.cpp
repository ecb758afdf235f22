// Replies of a search, one a line: whatever stands in them, each is of one kind, a row has the
// cells of its columns or says that it has not, and what is made of the cells (sort keys, request
// lines, pages) keeps its form.

#include "courts/CaseMarks.h"
#include "namesearch/CaseFromRow.h"
#include "namesearch/DuplicateNames.h"
#include "namesearch/Replies.h"
#include "namesearch/ResultRows.h"
#include "namesearch/ServerMessages.h"
#include "namesearch/SortKeys.h"

#include "core/AppFolder.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "core/Windows1252.h"
#include "courts/Counties.h"
#include "courts/DiscisCourts.h"

#include <QCoreApplication>
#include <QHash>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr QChar bar(u'\u00A6');
/// Of one input: what stands behind them is left out, so that many inputs can be tried.
constexpr qsizetype mostReplies = 6;

void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fputs(what, stderr);
    std::fputc('\n', stderr);
    std::abort();
}

qsizetype columnsOf(ResultKind kind)
{
    return static_cast<qsizetype>(ResultColumnsOf(kind).size());
}

constexpr std::array<ResultKind, 7> caseKinds{
    ResultKind::Superior,       ResultKind::Idaho,       ResultKind::Bankruptcy,
    ResultKind::Index,          ResultKind::DiscisCivil, ResultKind::DiscisStatewide,
    ResultKind::DiscisAddresses};

bool isDiscis(ResultKind kind)
{
    return kind == ResultKind::DiscisCivil || kind == ResultKind::DiscisStatewide
           || kind == ResultKind::DiscisAddresses;
}

void checkReply(const QString &reply)
{
    const ReplyRules district{EndMark::AtTheBeginning, false};
    const ReplyKind kind = ClassifyReply(reply);
    const ReplyKind districtKind = ClassifyReply(reply, district);
    require(districtKind != ReplyKind::TooManyHits, "the district courts tell no too many hits");
    if (!reply.startsWith(u"ERROR")) {
        require(kind != ReplyKind::TooManyHits && kind != ReplyKind::Error,
                "an error without word");
        require(ClassifyReply(reply.toLower()) == kind, "a kind that depends on the letters' case");
    }
    require(ClassifyReply(u"EOF~"_s + reply, district) == ReplyKind::EndOfReply,
            "an end mark in front that is none");
    const bool thereof = reply.right(4).compare(u"THER", Qt::CaseInsensitive) == 0;
    require((ClassifyReply(reply + u"EOF~"_s) == ReplyKind::EndOfReply) != thereof,
            "an end mark at the end that is none");
    require(ClassifyReply(u"SEARCHING"_s + reply + u'.') == ReplyKind::Progress,
            "progress that is none");
    const QString progress = ProgressText(reply);
    require(!progress.contains(u'~') && (progress.isEmpty() || progress.size() == reply.size()),
            "progress of another length");

    const IndexReplyKind indexKind = ClassifyIndexReply(reply);
    require(ClassifyIndexReply(u' ' + reply) == IndexReplyKind::Row, "a reply behind a blank");
    if (indexKind == IndexReplyKind::EndOfSearch) {
        require(kind == ReplyKind::EndOfReply || reply.endsWith(u"~|"), "an end mark of its own");
        require(ClassifyIndexReply(reply + u'~') == IndexReplyKind::Row, "an end mark before text");
    } else if (indexKind != IndexReplyKind::Row) {
        require(ClassifyIndexReply(reply + u"EOF~"_s) == indexKind, "a head that does not decide");
    }
}

void checkSortKeys(const QString &cell)
{
    const QString date = DateSortText(cell);
    const bool allDigits =
        std::all_of(date.cbegin(), date.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    require(date == cell || (date.size() == 14 && allDigits), "a date that is neither");
    require(date == cell || DateSortText(date) == date, "a date made twice");

    const QString number = CaseNumberSortText(cell);
    require(CaseNumberSortText(MarkedAsOpened(cell)) == number, "an opened case moves");
    require(CaseNumberSortText(u'*' + cell) == number, "an archived case moves");
    if (number.startsWith(u'&') && !cell.contains(u'&'))
        require(number.size() >= 62 && number.sliced(1).count(u'.') == 1, "a negative number");
    QString bare = cell;
    bare.remove(u'-');
    require(InvertDigits(InvertDigits(bare)) == bare, "digits inverted twice");
    for (const SortAs as : {SortAs::Text, SortAs::Date, SortAs::CaseNumber})
        require(SortKeyOf(cell, as) == SortKeyOf(cell.toLower(), as), "a key of capitals");
}

/// The digits of a cell that is nothing but a number which is neither marked nor filled up.
bool isPlainNumber(const QString &cell)
{
    return !cell.isEmpty() && cell.size() <= 30 && cell[0] >= u'1'
           && std::all_of(cell.cbegin(), cell.cend(),
                          [](QChar c) { return c >= u'0' && c <= u'9'; });
}

void checkOrder(const QString &left, const QString &right)
{
    if (!isPlainNumber(left) || !isPlainNumber(right))
        return;
    const bool less = left.size() != right.size() ? left.size() < right.size() : left < right;
    require((CaseNumberSortText(left) < CaseNumberSortText(right)) == less, "numbers in disorder");
    require((CaseNumberSortText(u'(' + left + u')') < CaseNumberSortText(u'(' + right + u')'))
                == (left != right && !less),
            "negative numbers in disorder");
}

/// What opens a case: with a form that the next server can read, and the same for a case that was
/// opened before.
void checkCase(const CaseStart &fields, const CaseStart &again, const QString &cell)
{
    require(fields.Caption == again.Caption && fields.Kind == again.Kind
                && fields.lblCaseDetailsHdr == again.lblCaseDetailsHdr
                && fields.lblCourtName == again.lblCourtName && fields.Log == again.Log
                && fields.tboxCaseNumberQueue == again.tboxCaseNumberQueue
                && fields.lblTopFrameCaseType == again.lblTopFrameCaseType,
            "a case that opens otherwise the second time");
    const QString &line = fields.tboxCaseNumberQueue;
    if (fields.chkBK) {
        require(line == CaseNumberOf(cell), "a bankruptcy case without its number");
        return;
    }
    struct Family
    {
        QStringView head;
        qsizetype fields;
    };
    constexpr std::array<Family, 4> families{
        {{u"WASUP", 5}, {u"OREGON", 4}, {u"IDSUP", 4}, {u"WADISCIS", 10}}};
    const auto *family = std::find_if(families.begin(), families.end(), [&](const Family &one) {
        return line.startsWith(one.head) && line.sliced(one.head.size()).startsWith(bar);
    });
    require(family != families.end(), "a request of no family");
    require(line.count(bar) == family->fields && line.endsWith(bar) && !line.contains(u'|'),
            "a request of another form");
}

void checkCells(const QStringList &cells, ResultKind kind)
{
    QStringList opened = cells;
    const QString cell = cells.value(1);
    if (cells.size() > 1)
        opened[1] = MarkedAsOpened(cell);
    require(MarkedAsOpened(MarkedAsOpened(cell)) == MarkedAsOpened(cell), "marked twice");
    require(MarkedAsOpened(cell).endsWith(cell), "a marked cell without its text");
    require(CaseNumberOf(MarkedAsOpened(cell)) == CaseNumberOf(cell), "another number when opened");
    require(cell == u"**Warning**" || IsCaseRow(cells) == !CaseNumberOf(cell).isEmpty(),
            "a case without a number");
    if (isDiscis(kind)) {
        for (const QString &type : {u"CV"_s, u"IN"_s})
            checkCase(DiscisCaseOfRow(cells, kind, type), DiscisCaseOfRow(opened, kind, type),
                      cell);
        return;
    }
    // Of each kind the states that have it.
    static const QHash<ResultKind, QStringList> statesOf{{ResultKind::Superior, {u"WA"_s, u"OR"_s}},
                                                         {ResultKind::Idaho, {u"ID"_s}},
                                                         {ResultKind::Bankruptcy, {u"WAWBK"_s}},
                                                         {ResultKind::Index, {u"WA"_s}}};
    for (const QString &state : statesOf.value(kind)) {
        const CaseStart fields = CaseOfRow(cells, kind, state);
        require(fields.txtCaseNumber == cell, "the cell that was opened has changed");
        checkCase(fields, CaseOfRow(opened, kind, state), cell);
    }
}

void checkRow(const QString &reply, ResultKind kind)
{
    const ResultRow row = ParseResultRow(reply, kind);
    require(row.Complete ? row.Cells.size() == columnsOf(kind) : row.Cells.size() < columnsOf(kind),
            "cells and columns differ in number");
    const QString trimmed = TrimBlanks(reply);
    require(row.Cells.isEmpty() == trimmed.isEmpty(), "a row without a cell");
    if (trimmed.isEmpty())
        return;
    const QChar delimiter = isDiscis(kind) ? QChar(u'~') : trimmed.back();
    for (const QString &cell : row.Cells) {
        require(!cell.contains(delimiter) || kind == ResultKind::Bankruptcy,
                "a cell that was not split");
        if (kind == ResultKind::Index || kind == ResultKind::DiscisCivil)
            checkSortKeys(cell);
    }
    // Another delimiter gives the same cells. Not where the cells join fields by a text of their
    // own, and not at the edge of the row, where blanks are no delimiter.
    const QChar other(u'\u0001');
    if (!isDiscis(kind) && kind != ResultKind::Bankruptcy && !trimmed.contains(other)) {
        QString changed = trimmed;
        changed.replace(delimiter, other);
        require(ParseResultRow(changed, kind).Cells == row.Cells, "cells of another delimiter");
    }
    checkCells(row.Cells, kind);
}

void checkNameRow(const QString &reply)
{
    constexpr qsizetype cells = 8;
    const NameRow name = ParseNameRow(reply, 1);
    require(name.Complete ? name.Cells.size() == cells : name.Cells.size() < cells,
            "cells of a name and columns differ in number");
    require(columnsOf(ResultKind::NamesStatewide) == cells
                && columnsOf(ResultKind::NamesAddresses) == cells,
            "columns of names");
    require(!name.Key.isEmpty() && name.Key != ParseNameRow(reply, 2).Key, "two names of one key");
    const QString marked = MarkedAsRetrieved(name.Cells.value(0));
    require(MarkedAsRetrieved(marked) == marked && marked.startsWith(u">>"), "retrieved twice");
    QStringList again = name.Cells;
    if (!again.isEmpty())
        again[0] = marked;
    for (const auto &[search, fields] : {std::pair{u"SNCI"_s, 13}, std::pair{u"DND"_s, 9}}) {
        const QString line = CasesOfNameRequest(search, u"SMITH"_s, name.Cells, name.Key);
        require(line.count(bar) == fields && line.endsWith(bar), "a request of another form");
        require(!line.contains(u'|') && !line.contains(u'\r'), "a request that breaks its frame");
        if (!again.isEmpty())
            require(CasesOfNameRequest(search, u"SMITH"_s, again, name.Key) == line,
                    "a request with the mark in it");
    }
}

void checkMessage(const QString &error, const QString &warning, qint16 pageLimit)
{
    const ServerMessageRow &row = ServerMessageRowOf(error, warning);
    const QString &text = error.isEmpty() ? warning : error;
    require(row.error == !error.isEmpty(), "a warning in the words of an error");
    require(text.contains(row.words, Qt::CaseInsensitive)
                && text.contains(row.furtherWords, Qt::CaseInsensitive),
            "the words of another message");
    require(!row.pageLimit || error.isEmpty(), "a page behind an error");
    try {
        const NextPage page = NextPageOf(warning, pageLimit);
        const QString request = PageRequest(u"INDEX~SEARCH~BALL=~LL=1~UL=500~"_s, page);
        const int rows = page.Upper - page.Lower + 1;
        require(rows <= pageLimit && rows == ToInteger(page.Count), "a page of another size");
        require(rows <= ToInteger(RowsStillToCome(warning)), "more rows than there are");
        require(request == u"INDEX~SEARCH~BALL=~LL=%1~UL=%2~"_s.arg(page.Lower).arg(page.Upper),
                "another request");
    } catch (const RunTimeError &problem) {
        require(problem.Number() == 6 || problem.Number() == 9 || problem.Number() == 13,
                "an error of another number");
    }
    try {
        const QString request = PageRequest(warning, {1, 2, u"2"_s});
        require(request.endsWith(u"LL=1~UL=2~") && PageRequest(request, {1, 2, u"2"_s}) == request,
                "a page asked for twice");
    } catch (const RunTimeError &problem) {
        require(problem.Number() == 5 && !warning.contains(u"LL=", Qt::CaseInsensitive),
                "a page that was not found");
    }
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static const QCoreApplication application(*argc, *argv);
    ChooseAppFolder(QStringLiteral(HALVANE_DATA_DIR));
    require(LoadOrCounties() > 0 && LoadDiscisCourts() > 0, "no catalogues");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = FromWindows1252(
        QByteArrayView(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    QString before;
    const QStringList replies = text.split(u'\n');
    for (const QString &reply : replies.first(std::min(mostReplies, replies.size()))) {
        checkReply(reply);
        checkSortKeys(reply);
        checkOrder(before, reply);
        for (const ResultKind kind : caseKinds)
            checkRow(reply, kind);
        if (IsDuplicateName(reply))
            checkNameRow(reply);
        for (const qint16 limit : {qint16{1}, qint16{500}, qint16{32767}})
            checkMessage(before, reply, limit);
        checkMessage({}, reply, 500);
        before = reply;
    }
    return 0;
}
