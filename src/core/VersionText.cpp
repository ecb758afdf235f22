#include "core/VersionText.h"

#include "core/Version.h"

#include <QCoreApplication>
#include <QStringList>
#include <QSysInfo>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace {
QString system()
{
    return u"System: "_s + QSysInfo::prettyProductName() + u", "_s + QSysInfo::kernelType() + u' '
           + QSysInfo::kernelVersion() + u", "_s + QSysInfo::currentCpuArchitecture();
}

QString environment(const char *name)
{
    const QString value = qEnvironmentVariable(name);
    return QString::fromLatin1(name) + (value.isEmpty() ? u" is not set"_s : u" is "_s + value);
}

/// Asked for by name, since an application with windows is nothing that this library knows.
QString plugin()
{
    const QCoreApplication *application = QCoreApplication::instance();
    const QString loaded =
        application ? application->property("platformName").toString() : QString();
    if (!loaded.isEmpty())
        return u"Platform plugin: "_s + loaded;
    return u"Platform plugin: none loaded, "_s + environment("QT_QPA_PLATFORM") + u", "_s
           + environment("XDG_SESSION_TYPE");
}

QString build()
{
    QString kind = QStringLiteral(HALVANE_BUILD_TYPE);
    if (kind.isEmpty())
        kind = u"of no type"_s;
    const QString sanitizers = QStringLiteral(HALVANE_SANITIZE);
    if (!sanitizers.isEmpty())
        kind += u" with sanitizers ("_s + sanitizers + u')';
    return u"Build: "_s + kind + u", "_s + QStringLiteral(HALVANE_COMPILER) + u", "_s
           + QSysInfo::buildAbi();
}
} // namespace

QString VersionText(const QString &program)
{
    const QStringList lines{program + u' ' + ProgramVersion(),
                            u"Qt: "_s + QString::fromLatin1(qVersion()) + u", compiled with "_s
                                + QStringLiteral(QT_VERSION_STR),
                            system(), plugin(), build()};
    return lines.join(u'\n');
}
