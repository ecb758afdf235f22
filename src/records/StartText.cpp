#include "records/StartText.h"

#include "records/JsonFields.h"

#include <QJsonDocument>

#include <array>

using namespace Qt::StringLiterals;

namespace {
/// Of the form, counted up when what is kept would be read otherwise.
constexpr int version = 1;

const QString caseKey = u"Case"_s;
const QString documentsKey = u"Documents"_s;
const QString listKey = u"List"_s;
const QString kindKey = u"Kind"_s;
const QString originKey = u"Origin"_s;

using CaseField = JsonField<CaseStart>;
constexpr std::array<CaseField, 21> caseFields{{
    {u"Caption", &CaseStart::Caption},
    {u"Heading", &CaseStart::lblCaseDetailsHdr},
    {u"Archived", &CaseStart::Archived},
    {u"Court", &CaseStart::lblCourtName},
    {u"Title", &CaseStart::lblCaseTitle},
    {u"Filed", &CaseStart::lblDateFiled},
    {u"TopFrameType", &CaseStart::lblTopFrameCaseType},
    {u"CaseType", &CaseStart::lblCaseType},
    {u"CaseNo", &CaseStart::lblCaseNo},
    {u"State", &CaseStart::lblState},
    {u"Number", &CaseStart::txtCaseNumber},
    {u"County", &CaseStart::txtCountyName},
    {u"OregonCourt", &CaseStart::lblOrCourtType},
    {u"CourtCode", &CaseStart::txtCourtCode},
    {u"Type", &CaseStart::txtCaseType},
    {u"Request", &CaseStart::tboxCaseNumberQueue},
    {u"TabRequests", &CaseStart::TabRequests},
    {u"ClientCode", &CaseStart::ClientAcctgCode},
    {u"Bankruptcy", &CaseStart::chkBK},
    {u"AutoPrint", &CaseStart::chkAutoPrint},
    {u"Log", &CaseStart::Log},
}};

using DocumentField = JsonField<DocumentStart>;
constexpr std::array<DocumentField, 7> documentFields{{
    {u"Command", &DocumentStart::Command},
    {u"Number", &DocumentStart::CaseNumber},
    {u"County", &DocumentStart::County},
    {u"Description", &DocumentStart::Description},
    {u"Pages", &DocumentStart::PageCount},
    {u"Date", &DocumentStart::Date},
    {u"ClientCode", &DocumentStart::ClientMatterText},
}};

QByteArray textOf(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

/// The object of a text whose first word this is; nothing of another version.
std::optional<QJsonObject> objectOf(const QByteArray &text, const QString &word)
{
    QJsonObject object = QJsonDocument::fromJson(text).object();
    if (object.take(word).toInt() != version)
        return std::nullopt;
    return object;
}

std::optional<CaseKind> takeKind(QJsonObject &object)
{
    const int kind = object.take(kindKey).toInt(-1);
    if (kind < 0 || kind > static_cast<int>(CaseKind::NonCivil))
        return std::nullopt;
    return static_cast<CaseKind>(kind);
}
} // namespace

QByteArray TextOfCaseStart(const CaseStart &start)
{
    QJsonObject object{{caseKey, version}, {kindKey, static_cast<int>(start.Kind)}};
    WriteFields(object, start, CaseStart(start.Kind), caseFields);
    // It is a text of this kind itself.
    if (!start.Origin.isEmpty())
        object.insert(originKey, QString::fromUtf8(start.Origin));
    return textOf(object);
}

std::optional<CaseStart> CaseStartOf(const QByteArray &text)
{
    std::optional<QJsonObject> object = objectOf(text, caseKey);
    const std::optional<CaseKind> kind = object ? takeKind(*object) : std::nullopt;
    if (!kind)
        return std::nullopt;
    CaseStart start(*kind);
    const QJsonValue origin = object->take(originKey);
    start.Origin = origin.toString().toUtf8();
    const bool whole = origin.isUndefined() || origin.isString();
    if (!whole || !TakeFields(*object, start, caseFields) || !object->isEmpty())
        return std::nullopt;
    return start;
}

QByteArray TextOfDocuments(const QList<DocumentStart> &starts)
{
    QJsonArray list;
    for (const DocumentStart &start : starts) {
        QJsonObject document;
        WriteFields(document, start, {}, documentFields);
        list.append(document);
    }
    return textOf({{documentsKey, version}, {listKey, list}});
}

std::optional<QList<DocumentStart>> DocumentsOf(const QByteArray &text)
{
    std::optional<QJsonObject> object = objectOf(text, documentsKey);
    const QJsonArray list = object ? object->take(listKey).toArray() : QJsonArray();
    if (list.isEmpty() || !object->isEmpty())
        return std::nullopt;
    QList<DocumentStart> starts;
    for (const auto &one : list) {
        QJsonObject document = one.toObject();
        DocumentStart start;
        if (!one.isObject() || !TakeFields(document, start, documentFields) || !document.isEmpty())
            return std::nullopt;
        starts.append(start);
    }
    return starts;
}
