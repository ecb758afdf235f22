#include "prefs/SystemInfo.h"

#include <QFileInfo>
#include <QProcess>

using namespace Qt::StringLiterals;

SystemInfoSource SystemInfoSource::OfThisMachine()
{
    return {.hasRegistry = HasRegistry(),
            .readValue = &MachineRegistryValue,
            .fileExists = [](const QString &path) { return QFileInfo::exists(path); },
            .run = [](const QString &path) { return QProcess::startDetached(path, {}); }};
}

QString GetKeyValue(const SystemInfoSource &source, const QString &key, const QString &name)
{
    const std::optional<RegistryValue> value = source.readValue(key, name);
    if (!value)
        return {};
    if (const auto *number = std::get_if<quint32>(&*value))
        return u"&h"_s + QString::number(*number, 16).toUpper();
    const auto &text = std::get<QString>(*value);
    return text.left(text.indexOf(QChar::Null));
}

QString SystemInfoTool(const SystemInfoSource &source)
{
    const QString path =
        GetKeyValue(source, uR"(SOFTWARE\Microsoft\Shared Tools\MSINFO)"_s, u"PATH"_s);
    if (!path.isEmpty())
        return path;
    const QString folder =
        GetKeyValue(source, uR"(SOFTWARE\Microsoft\Shared Tools Location)"_s, u"MSINFO"_s);
    const QString tool = folder + uR"(\MSINFO32.EXE)"_s;
    return !folder.isEmpty() && source.fileExists(tool) ? tool : QString();
}
