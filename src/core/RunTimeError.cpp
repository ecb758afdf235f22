#include "core/RunTimeError.h"

#include <cmath>
#include <limits>
#include <utility>

RunTimeError::RunTimeError(int errorNumber, QString errorDescription)
    : number(errorNumber), description(std::move(errorDescription)), utf8(description.toUtf8())
{
}

RunTimeError RunTimeError::SubscriptOutOfRange()
{
    return {9, QStringLiteral("Subscript out of range")};
}

const QString &FieldAt(const QStringList &fields, qsizetype index)
{
    if (index < 0 || index >= fields.size())
        throw RunTimeError::SubscriptOutOfRange();
    return fields[index];
}

qint16 ToInteger(const QString &text)
{
    bool isNumber = false;
    const double value = text.trimmed().toDouble(&isNumber);
    if (!isNumber || std::isnan(value))
        throw RunTimeError::TypeMismatch();
    // Halves go to the even neighbour, as everywhere in the program.
    const double rounded = std::nearbyint(value);
    if (rounded < std::numeric_limits<qint16>::min()
        || rounded > std::numeric_limits<qint16>::max())
        throw RunTimeError::Overflow();
    return static_cast<qint16>(rounded);
}
