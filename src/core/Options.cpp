#include "core/Options.h"

#include "core/AppFolder.h"
#include "core/CSetting.h"
#include "core/GlobalState.h"
#include "core/TextUtilities.h"
#include "core/Windows1252.h"

#include <QDir>
#include <QFileInfo>

#include <array>

using namespace Qt::StringLiterals;

namespace {
CSetting &sharedSetting()
{
    static CSetting setting;
    setting.Init(u"options.ini"_s, true);
    return setting;
}

qint16 positiveOr(const QString &text, qint16 fallback)
{
    bool isNumber = false;
    const short value = text.trimmed().toShort(&isNumber);
    return isNumber && value > 0 ? value : fallback;
}

/// A setting whose "0" counts as absent.
struct DefaultedText
{
    QStringView key;
    QString GlobalState::*global;
    QStringView fallback;
};

constexpr std::array<DefaultedText, 4> defaultedTexts{{
    {u"DefaultView", &GlobalState::strDefaultView, u"WA"},
    {u"DefaultWaCounty", &GlobalState::strDefaultWaCounty, u"King"},
    {u"DefaultOrCounty", &GlobalState::strDefaultOrCounty, u"Adams"},
    {u"DefaultIDCounty", &GlobalState::strDefaultIDCounty, u"Ada"},
}};

QString searchingOr(const QString &key, const QString &fallback)
{
    return sharedSetting().GetSettingStr(u"Searching"_s, key, fallback);
}

void saveSearching(const QString &key, const QString &value)
{
    SaveOptionStr(u"Searching"_s, key, value);
}

void loadReportFolder()
{
    const QString standard = AppFolder() + u"/Reports"_s;
    const QString stored = GetOptionStr(u"Searching"_s, u"ReportFolder"_s);
    QString &folder = Global.strReportFolder;
    if (stored == u"0") {
        folder = standard;
        saveSearching(u"ReportFolder"_s, QDir::toNativeSeparators(folder));
    } else if (stored.trimmed().toLower() == u"reports") {
        folder = standard;
    } else {
        folder = QDir::fromNativeSeparators(stored.trimmed());
    }
    if (!QFileInfo(folder).isDir())
        folder = standard;
    QDir().mkpath(folder);
    saveSearching(u"ReportFolder"_s, QDir::toNativeSeparators(folder));
}

void loadServerPort()
{
    const QString stored = GetOptionStr(u"Communications"_s, u"HVServerPort"_s);
    if (stored == u"0") {
        Global.lngServerPort = 80;
        SaveOptionStr(u"Communications"_s, u"HVServerPort"_s, u"80"_s);
        return;
    }
    Global.lngServerPort = stored.trimmed().toInt();
}

void loadPrintHeader()
{
    const QString stored = searchingOr(u"PrintHdr"_s, u"x"_s);
    const QString phrase = u"--Enter a Name or Phrase to include on the 1st page--"_s;
    if (stored == u"x") {
        Global.strPrintHdr = u"0"_s;
        saveSearching(u"PrintHdr"_s, u"0"_s);
    } else {
        Global.strPrintHdr = stored == u"0" ? u"0"_s : u"1"_s;
    }
    Global.strPrintHdrVal = searchingOr(u"PrintHdrVal"_s, u"x"_s);
    if (Global.strPrintHdrVal == u"x" || Global.strPrintHdrVal.isEmpty()) {
        Global.strPrintHdrVal = phrase;
        saveSearching(u"PrintHdrVal"_s, phrase);
    }
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
    Global.bEnableMRU = GetOptionStr(u"Searching"_s, u"EnableMRU"_s) != u"0";
    Global.bEnableAcctg = GetOptionStr(u"Accounting"_s, u"EnableAcctg"_s) != u"0";
    Global.intMaxIndexResults = positiveOr(GetOptionStr(u"Searching"_s, u"MaxIndexResults"_s), 500);
    Global.CasesPerPage = Global.intMaxIndexResults;
    for (const DefaultedText &row : defaultedTexts) {
        const QString value = TrimBlanks(GetOptionStr(u"Searching"_s, row.key.toString()));
        Global.*row.global = value == u"0" ? row.fallback.toString() : value;
    }
    loadReportFolder();
    loadServerPort();
    Global.strDefaultToWaIndex = GetOptionStr(u"Searching"_s, u"DefaultToWaIndex"_s);
    if (Global.strDefaultToWaIndex == u"0")
        saveSearching(u"DefaultToWaIndex"_s, u"0"_s);
    else
        Global.strDefaultToWaIndex = u"1"_s;
    loadPrintHeader();
    return true;
}

void LoadMainWindowOptions()
{
    CSetting &setting = sharedSetting();
    const QString alerts = setting.GetSettingStr(u"Communications"_s, u"ShowAlerts"_s, u"A"_s);
    if (alerts == u"A")
        SaveOptionStr(u"Communications"_s, u"ShowAlerts"_s, u"0"_s);
    Global.bShowAlerts = alerts == u"1";
    Global.bBatchSearch =
        setting.GetSettingStr(u"Communications"_s, u"BatchSearch"_s, u"A"_s) == u"1";
    const QString header = GetOptionStr(u"General"_s, u"RNHeader"_s);
    Global.strReportName = header == u"0" ? u"Halvane"_s : header;
    Global.intSearchTimeout = positiveOr(GetOptionStr(u"Searching"_s, u"SearchTimeout"_s), 1);
    Global.intSearchingMsgs = positiveOr(GetOptionStr(u"Searching"_s, u"SearchingMsgs"_s), 12);
}
