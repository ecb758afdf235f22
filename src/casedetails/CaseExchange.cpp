#include "casedetails/CaseExchange.h"

#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "link/Exchange.h"
#include "link/RequestLine.h"

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView linkLost = u"Halvane Server Connection was Dropped!";
} // namespace

void SendTabRequest(const QString &request, const QString &clientCode)
{
    QString line = TrimBlanks(request);
    if (!clientCode.isEmpty())
        line = EmbedClientCode(line, clientCode);
    if (BeginExchange(line) != SendStatus::Sent)
        throw RunTimeError(0, linkLost.toString());
}

bool ReadTabReply(QStringView beforeStatus, const std::function<bool(const QString &line)> &take)
{
    const ReadStatus status = ReadReply([&](const Response &response) {
        WriteAppInfo(u"Current Response: --> "_s + response.Token + beforeStatus
                     + QString::number(Number(response.Status)));
        return response.Status == ReadStatus::Token && take(response.Token);
    });
    if (status == ReadStatus::NotClosed)
        throw RunTimeError(0, linkLost.toString());
    return status == ReadStatus::Token;
}
