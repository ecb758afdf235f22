#include "link/Exchange.h"

#include "core/EventLoop.h"
#include "link/frmWinsock.h"

SendStatus BeginExchange(const QString &request)
{
    frmWinsock::DiscardArrivedData();
    return SendReq(request);
}

SendStatus InterruptExchange(const QString &request)
{
    return SendReq(request);
}

ReadStatus ReadReply(const std::function<bool(const Response &response)> &take, EachRound round)
{
    for (;;) {
        const Response response = ReadResponse();
        const bool over = take(response);
        if (over || response.Status != ReadStatus::Token)
            return response.Status;
        if (round == EachRound::Yields)
            Yield();
    }
}
