#pragma once

#include <QString>

/// The program's version, as the build says it.
inline QString ProgramVersion()
{
    return QStringLiteral("%1.%2.%3")
        .arg(HALVANE_VERSION_MAJOR)
        .arg(HALVANE_VERSION_MINOR)
        .arg(HALVANE_VERSION_REVISION);
}

/// The version as the server wants to hear it: one dot only, minor and revision side by side.
inline QString LoginVersion()
{
    return QStringLiteral("AppVer-%1.%2%3")
        .arg(HALVANE_VERSION_MAJOR)
        .arg(HALVANE_VERSION_MINOR)
        .arg(HALVANE_VERSION_REVISION);
}

/// The page that Help, the court dates and the lost password link open.
inline QString SupportPage()
{
    return QStringLiteral("https://" HALVANE_SUPPORT_HOST "/support.htm");
}
