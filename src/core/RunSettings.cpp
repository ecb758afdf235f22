#include "core/RunSettings.h"

#include "core/FolderState.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {
struct Held
{
    QHash<QString, QString> values;
};

FolderState<Held> held;

QString nameOf(const QString &section, const QString &key)
{
    return section.trimmed().toLower() + u'\n' + key.trimmed().toLower();
}
} // namespace

void HoldForThisRun(const QString &section, const QString &key, const QString &value)
{
    held.values.insert(nameOf(section, key), value);
}

std::optional<QString> HeldForThisRun(const QString &section, const QString &key)
{
    const auto found = held.values.constFind(nameOf(section, key));
    if (found == held.values.constEnd())
        return std::nullopt;
    return found.value();
}
