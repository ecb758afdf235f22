#include "core/UserStore.h"

#include <QFile>
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
    QSettings store(QSettings::IniFormat, QSettings::UserScope, u"Halvane"_s, u"Halvane"_s);
    store.setValue(section + u'/' + key, value);
    store.sync();
    // The titles of columns, which come from the courts, are nobody else's business.
    QFile::setPermissions(store.fileName(), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}
