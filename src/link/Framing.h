#pragma once

#include "core/ReceiveBuffer.h"

#include <QString>

/// Every frame begins and ends with this bar.
constexpr char frameBar = '|';

/// delimiter + text + delimiter.
QString WrapDelimited(const QString &text, QChar delimiter);

/// Takes the first token out of the buffer: what stands between the first delimiter and the next.
/// What stands before the first one is discarded with it. Without two delimiters the answer is ""
/// and the buffer stays as it is; an empty token is consumed and answers "" too.
QByteArray ExtractDelimited(ReceiveBuffer &buffer, char delimiter);
