#include "history/AskedItem.h"

#include <array>

using namespace Qt::StringLiterals;

QString TextOfKind(AskedKind kind)
{
    constexpr std::array<QStringView, 3> texts{u"Search", u"Case", u"Document"};
    return texts.at(static_cast<size_t>(kind)).toString();
}

QString TextOfMoment(const QDateTime &when)
{
    return when.toString(u"MM/dd/yyyy HH:mm"_s);
}
