#pragma once

#include <QString>

#include <functional>

/// The five server addresses of options.ini, read now. A missing key gives "0", which is tried like
/// an address.
QStringList LoadServerList();

/// One attempt to connect to `address` on Global.lngServerPort, 7 seconds at most. True when
/// connected; otherwise frmWinsock is unloaded.
bool ConnectToRouter(const QString &address);

/// True when this machine has an address in a network. Loads frmWinsock.
bool HasNetworkAddress();

/// Closes the connection and unloads frmWinsock. Closing a link that is not open is no error.
void CloseServerLink();

/// Gives up a link that cannot be used any more: closes it and tells whoever shows the connection
/// (LinkEvents::LinkDropped). The session is over, and the next login connects anew.
void DropServerLink();

enum class ServerSelection { Contacted, Cancelled, NotAvailable };

/// Looks for a server: each address on the port in force, then on the other one of 80 and 85. The
/// port stays swapped for the next address, and is saved only when the attempt right after a swap
/// succeeded. `cancelled` is asked before each attempt.
ServerSelection SelectServer(const std::function<bool()> &cancelled);
