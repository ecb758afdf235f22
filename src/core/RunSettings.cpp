#include "core/RunSettings.h"

#include "core/GlobalState.h"

using namespace Qt::StringLiterals;

namespace {
QString nameOf(const QString &section, const QString &key)
{
    return section.trimmed().toLower() + u'\n' + key.trimmed().toLower();
}
} // namespace

void HoldForThisRun(const QString &section, const QString &key, const QString &value)
{
    Global.SettingsOfThisRun.insert(nameOf(section, key), value);
}

std::optional<QString> HeldForThisRun(const QString &section, const QString &key)
{
    const auto found = Global.SettingsOfThisRun.constFind(nameOf(section, key));
    if (found == Global.SettingsOfThisRun.constEnd())
        return std::nullopt;
    return found.value();
}
