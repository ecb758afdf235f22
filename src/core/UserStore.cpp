#include "core/UserStore.h"

#include <QSettings>

using namespace Qt::StringLiterals;

QString UserStoreValue(const QString &section, const QString &key, const QString &fallback)
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, u"Halvane"_s, u"Halvane"_s)
        .value(section + u'/' + key, fallback)
        .toString();
}

void SaveUserStoreValue(const QString &section, const QString &key, const QString &value)
{
    QSettings(QSettings::IniFormat, QSettings::UserScope, u"Halvane"_s, u"Halvane"_s)
        .setValue(section + u'/' + key, value);
}
