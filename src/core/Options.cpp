#include "core/Options.h"

#include "core/CSetting.h"
#include "core/Settings.h"
#include "core/TextUtilities.h"
#include "core/Windows1252.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {
CSetting &sharedSetting()
{
    static CSetting setting;
    setting.Init(u"options.ini"_s, true);
    return setting;
}
} // namespace

QString GetOptionStr(const QString &section, const QString &key)
{
    return sharedSetting().GetSettingStr(section, key, u"0"_s);
}

bool SaveOptionStr(const QString &section, const QString &key, const QString &value)
{
    sharedSetting().SaveSettingStr(section, key, value);
    return true;
}

QString EncodeCredential(const QString &text)
{
    QString encoded;
    const QByteArray bytes = ToWindows1252(TrimBlanks(text));
    for (const char byte : bytes)
        encoded += u'O' + QString::number(static_cast<quint8>(byte));
    return encoded;
}

QString DecodeCredential(const QString &text)
{
    QString decoded;
    const QStringList codes = text.split(u'O').mid(1);
    for (const QString &code : codes) {
        bool isNumber = false;
        const uint value = code.trimmed().toUInt(&isNumber);
        if (isNumber && value <= 0xFF)
            decoded += AnsiCharacter(static_cast<quint8>(value));
    }
    return decoded;
}

bool LoadAppOptions()
{
    TakeSettings(SettingRead::AtStart);
    return true;
}

void LoadMainWindowOptions()
{
    TakeSettings(SettingRead::WithMainWindow);
}
