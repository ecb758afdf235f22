#pragma once

#include "link/Comm.h"

#include <QByteArray>

#include <functional>

// One exchange with the server: a request goes out, and its reply is read to its end. There is one
// socket and one exchange at a time, and nothing on the wire says which reply belongs to which
// request. So every exchange of the program begins here, with nothing left of the one before, and
// is read here; nobody else calls SendReq and ReadResponse.

/// Begins an exchange: whatever has arrived and was not read is thrown away, then the request,
/// given without its bars, goes out. A reply that came too late, or that nobody read to its end
/// mark, would otherwise be taken for this one's. Gives what SendReq gives.
SendStatus BeginExchange(const QString &request);

/// Asks the server, in the middle of an exchange, to bring its reply to an end. What has arrived
/// stays: it belongs to whoever reads the exchange. Gives what SendReq gives.
SendStatus InterruptExchange(const QString &request);

/// Whether there is a connection that something can be asked over.
bool IsLinkUp();

/// Whether the event loop has a turn of its own after each token, beyond those of the waiting, or
/// only after very many.
enum class EachRound { Yields, GoesOn };

/// Reads the reply of the exchange that was begun, token by token.
///
/// `take` gets every response, the failing one included, and says whether the reply is over.
/// Reading ends then, or when no token came within the limit, or when the link was lost; what
/// comes back is the status of the last response. Throws what `take` throws, and error 6
/// ("Overflow") when the search time-out in seconds does not fit 16 bits.
ReadStatus ReadReply(const std::function<bool(const Response &response)> &take,
                     EachRound round = EachRound::Yields);

/// How a reply of bytes ended.
enum class BytesStatus {
    Over,   ///< as `take` said
    Silent, ///< nothing came for as long as `limitSeconds` says
    Lost    ///< the link was lost; what had come before was handed over
};

/// Reads the reply of the exchange that was begun as the bytes that it consists of, instead of as
/// tokens.
///
/// `take` gets what has come since the turn before, on the turn on which it came, and says whether
/// the reply is over. It gets an empty piece on a turn without anything new, of which there is one
/// at least every second. Throws what `take` throws.
BytesStatus ReadBytes(const std::function<bool(QByteArray piece)> &take,
                      const std::function<float()> &limitSeconds);

/// Ends an exchange whose rest nobody reads: throws away whatever has arrived, in the buffer and in
/// the socket.
void DropRestOfReply();
