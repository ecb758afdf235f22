#include "link/Framing.h"

#include <algorithm>

QString WrapDelimited(const QString &text, QChar delimiter)
{
    return delimiter + text + delimiter;
}

QByteArray ExtractDelimited(ReceiveBuffer &buffer, char delimiter)
{
    return buffer.Extract(delimiter).value_or(QByteArray());
}

bool HoldsReservedCharacter(QStringView text)
{
    return std::any_of(text.begin(), text.end(),
                       [](QChar c) { return c == u'|' || c == QChar(u'\u00A6'); });
}
