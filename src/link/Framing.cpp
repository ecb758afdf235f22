#include "link/Framing.h"

QString WrapDelimited(const QString &text, QChar delimiter)
{
    return delimiter + text + delimiter;
}

QByteArray ExtractDelimited(ReceiveBuffer &buffer, char delimiter)
{
    return buffer.Extract(delimiter).value_or(QByteArray());
}
