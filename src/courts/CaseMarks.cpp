#include "courts/CaseMarks.h"

#include "core/TextUtilities.h"

#include <array>

namespace {
/// The longest mark first: each is the beginning of the text behind which the number stands.
constexpr std::array<QStringView, 3> marks{u">>*", u">>", u"*"};

constexpr QStringView retrieveCommand = u"RETRIEVECOMMAND=";
} // namespace

QString CaseNumberOf(const QString &cell)
{
    for (const QStringView mark : marks) {
        if (cell.startsWith(mark))
            return TrimBlanks(cell.sliced(mark.size()));
    }
    return TrimBlanks(cell);
}

bool HoldsRetrieveCommand(const QString &text)
{
    return text.contains(retrieveCommand, Qt::CaseInsensitive);
}

QString WithoutRetrieveCommand(const QString &text)
{
    return QString(text).remove(retrieveCommand.toString(), Qt::CaseInsensitive);
}
