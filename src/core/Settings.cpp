#include "core/Settings.h"

#include "core/AppFolder.h"
#include "core/CSetting.h"
#include "core/GlobalState.h"
#include "core/RunSettings.h"

#include <QDir>
#include <QFileInfo>

#include <array>

using namespace Qt::StringLiterals;
using enum SettingRule;

namespace {
constexpr QStringView communications = u"Communications";
constexpr QStringView general = u"General";
constexpr QStringView searching = u"Searching";
constexpr QStringView security = u"Security";
constexpr QStringView securitySaved = u"security";

constexpr SettingRead window = SettingRead::WithMainWindow;
constexpr SettingRead start = SettingRead::AtStart;
constexpr SettingRead needed = SettingRead::WhenNeeded;

bool isOn(const QString &value)
{
    return value == u"1";
}

constexpr std::array<SettingRow, 30> rows{{
    {Setting::ShowAlerts, communications, u"ShowAlerts", u"A", u"0", OnlyOneIsOn, window,
     SettingWriter::Nobody, true, [](const QString &value) { Global.bShowAlerts = isOn(value); },
     u"", u""},
    {Setting::BatchSearch, communications, u"BatchSearch", u"A", u"0", OnlyOneIsOn, window,
     SettingWriter::Nobody, false, [](const QString &value) { Global.bBatchSearch = isOn(value); },
     u"", u""},
    {Setting::ReportName, general, u"RNHeader", u"0", u"Halvane", AbsentIsDefault, window,
     SettingWriter::Nobody, false, [](const QString &value) { Global.strReportName = value; }, u"",
     u""},
    {Setting::SearchTimeout, searching, u"SearchTimeout", u"0", u"1", PositiveNumber, window,
     SettingWriter::Nobody, false,
     [](const QString &value) { Global.intSearchTimeout = value.toShort(); }, u"", u""},
    {Setting::SearchingMsgs, searching, u"SearchingMsgs", u"0", u"12", PositiveNumber, window,
     SettingWriter::Nobody, false,
     [](const QString &value) { Global.intSearchingMsgs = value.toShort(); }, u"", u""},

    {Setting::EnableMRU, searching, u"EnableMRU", u"0", u"0", OnlyZeroIsOff, start,
     SettingWriter::Nobody, false, [](const QString &value) { Global.bEnableMRU = isOn(value); },
     u"", u""},
    {Setting::EnableAcctg, u"Accounting", u"EnableAcctg", u"0", u"0", OnlyZeroIsOff, start,
     SettingWriter::Accounting, false,
     [](const QString &value) { Global.bEnableAcctg = isOn(value); }, u"", u""},
    {Setting::MaxIndexResults, searching, u"MaxIndexResults", u"0", u"500", PositiveNumber, start,
     SettingWriter::Nobody, false,
     [](const QString &value) {
         Global.intMaxIndexResults = value.toShort();
         Global.CasesPerPage = Global.intMaxIndexResults;
     },
     u"", u""},
    {Setting::DefaultView, searching, u"DefaultView", u"0", u"WA", AbsentIsDefault, start,
     SettingWriter::Nobody, false, [](const QString &value) { Global.strDefaultView = value; }, u"",
     u""},
    {Setting::DefaultWaCounty, searching, u"DefaultWaCounty", u"0", u"King", AbsentIsDefault, start,
     SettingWriter::BatchEntry, false,
     [](const QString &value) { Global.strDefaultWaCounty = value; }, u"", u""},
    {Setting::DefaultOrCounty, searching, u"DefaultOrCounty", u"0", u"Adams", AbsentIsDefault,
     start, SettingWriter::BatchEntry, false,
     [](const QString &value) { Global.strDefaultOrCounty = value; }, u"", u""},
    {Setting::DefaultIdCounty, searching, u"DefaultIDCounty", u"0", u"Ada", AbsentIsDefault, start,
     SettingWriter::BatchEntry, false,
     [](const QString &value) { Global.strDefaultIDCounty = value; }, u"", u"DefaultIdCounty"},
    {Setting::ReportFolder, searching, u"ReportFolder", u"0", u"Reports", Folder, start,
     SettingWriter::Nobody, true, [](const QString &value) { Global.strReportFolder = value; }, u"",
     u""},
    {Setting::ServerPort, communications, u"HVServerPort", u"0", u"80", AbsentIsDefault, start,
     SettingWriter::Connecting, true,
     [](const QString &value) { Global.lngServerPort = value.toInt(); }, u"", u""},
    {Setting::DefaultToWaIndex, searching, u"DefaultToWaIndex", u"0", u"0", OnlyZeroIsOff, start,
     SettingWriter::Nobody, true, [](const QString &value) { Global.strDefaultToWaIndex = value; },
     u"", u""},
    {Setting::PrintHdr, searching, u"PrintHdr", u"x", u"0", OnlyZeroIsOff, start,
     SettingWriter::Nobody, true, [](const QString &value) { Global.strPrintHdr = value; }, u"",
     u""},
    {Setting::PrintHdrVal, searching, u"PrintHdrVal", u"x",
     u"--Enter a Name or Phrase to include on the 1st page--", EmptyIsDefault, start,
     SettingWriter::Nobody, true, [](const QString &value) { Global.strPrintHdrVal = value; }, u"",
     u""},

    {Setting::InactivityTimeOut, general, u"InactivityTimeOut", u"0", u"5", UpToThirty, needed,
     SettingWriter::Nobody, false, nullptr, u"", u""},
    {Setting::ServerIP1, communications, u"HVServerIP1", u"0", u"0", AsItIs, needed,
     SettingWriter::Nobody, false, nullptr, u"", u""},
    {Setting::ServerIP2, communications, u"HVServerIP2", u"0", u"0", AsItIs, needed,
     SettingWriter::Nobody, false, nullptr, u"", u""},
    {Setting::ServerIP3, communications, u"HVServerIP3", u"0", u"0", AsItIs, needed,
     SettingWriter::Nobody, false, nullptr, u"", u""},
    {Setting::ServerIP4, communications, u"HVServerIP4", u"0", u"0", AsItIs, needed,
     SettingWriter::Nobody, false, nullptr, u"", u""},
    {Setting::ServerIP5, communications, u"HVServerIP5", u"0", u"0", AsItIs, needed,
     SettingWriter::Nobody, false, nullptr, u"", u""},
    {Setting::RememberPwd, security, u"RememberPwd", u"0", u"0", OnlyZeroIsOff, needed,
     SettingWriter::Login, false, nullptr, securitySaved, u""},
    {Setting::UserName, security, u"UserName", u"0", u"0", AsItIs, needed, SettingWriter::Login,
     false, nullptr, securitySaved, u""},
    {Setting::UserPwd, security, u"UserPwd", u"0", u"0", AsItIs, needed, SettingWriter::Login,
     false, nullptr, securitySaved, u""},
    {Setting::DefaultIP, communications, u"DefaultIP", u"0", u"0", AsItIs, needed,
     SettingWriter::ChoiceOfAddress, false, nullptr, u"", u""},
    {Setting::ImageCounties, u"Images", u"Counties", u"0", u"0", AsItIs, needed,
     SettingWriter::Nobody, false, nullptr, u"", u""},
    {Setting::KeepHistory, u"History", u"KeepHistory", u"A", u"1", OnlyZeroIsOff, needed,
     SettingWriter::Nobody, false, nullptr, u"", u""},
    {Setting::HistoryDays, u"History", u"HistoryDays", u"0", u"400", PositiveNumber, needed,
     SettingWriter::Nobody, false, nullptr, u"", u""},
}};

constexpr bool rowsStandInOrder()
{
    for (size_t i = 0; i < rows.size(); ++i) {
        if (rows.at(i).Id != static_cast<Setting>(i))
            return false;
    }
    return true;
}
static_assert(rowsStandInOrder());

CSetting optionsFile()
{
    CSetting setting;
    setting.Init(u"options.ini"_s, true);
    return setting;
}

bool isAbsent(const SettingRow &row, const QString &stored)
{
    return stored == row.Absent || (row.Rule == EmptyIsDefault && stored.isEmpty());
}

QString positiveNumber(const SettingRow &row, const QString &stored)
{
    const short value = stored.trimmed().toShort();
    return value > 0 ? QString::number(value) : row.Default.toString();
}

QString folderOf(const SettingRow &row, const QString &stored)
{
    const QString standard = AppFolder() + u'/' + row.Default;
    const QString name = stored.trimmed();
    if (isAbsent(row, stored) || row.Default.compare(name, Qt::CaseInsensitive) == 0)
        return standard;
    const QString folder = QDir::fromNativeSeparators(name);
    return QFileInfo(folder).isDir() ? folder : standard;
}

void write(const SettingRow &row, const QString &value)
{
    const QStringView section = row.SavedSection.isEmpty() ? row.Section : row.SavedSection;
    const QStringView key = row.SavedKey.isEmpty() ? row.Key : row.SavedKey;
    optionsFile().SaveSettingStr(section.toString(), key.toString(), value);
}

/// Writes a value in the place of the one that was read.
void replace(const SettingRow &row, const QString &stored, const QString &value)
{
    optionsFile().ReplaceSettingStr(row.Section.toString(), row.Key.toString(), stored, value);
}

/// The folder is written in any case, as the platform writes it, and made if it is not there.
void keepFolder(const SettingRow &row, const QString &stored, const QString &folder)
{
    MakeOwnFolder(folder);
    replace(row, stored, QDir::toNativeSeparators(folder));
}

void take(const SettingRow &row)
{
    const QString stored = ReadSetting(row.Id);
    const QString value = MendedSetting(row.Id, stored);
    if (row.KeptAtStart && isAbsent(row, stored))
        replace(row, stored, row.Rule == Folder ? QDir::toNativeSeparators(value) : value);
    if (row.Rule == Folder)
        keepFolder(row, stored, value);
    row.Take(value);
}
} // namespace

std::span<const SettingRow> SettingRows()
{
    return rows;
}

const SettingRow &SettingRowOf(Setting setting)
{
    return rows.at(static_cast<size_t>(setting));
}

QString ReadSetting(Setting setting)
{
    const SettingRow &row = SettingRowOf(setting);
    return optionsFile().GetSettingStr(row.Section.toString(), row.Key.toString(),
                                       row.Absent.toString());
}

QString MendedSetting(Setting setting, const QString &stored)
{
    const SettingRow &row = SettingRowOf(setting);
    const QString standard = row.Default.toString();
    switch (row.Rule) {
    case AsItIs:
        return stored;
    case AbsentIsDefault:
    case EmptyIsDefault:
        return isAbsent(row, stored) ? standard : stored;
    case PositiveNumber:
        return positiveNumber(row, stored);
    case OnlyOneIsOn:
        return stored == u"1" ? u"1"_s : u"0"_s;
    case OnlyZeroIsOff:
        if (isAbsent(row, stored))
            return standard;
        return stored == u"0" ? u"0"_s : u"1"_s;
    case UpToThirty:
        return stored < u"0"_s || stored > u"30"_s ? standard : stored;
    case Folder:
        return folderOf(row, stored);
    }
    return stored;
}

QString SettingValue(Setting setting)
{
    return MendedSetting(setting, ReadSetting(setting));
}

void SaveSetting(Setting setting, SettingWriter writer, const QString &value)
{
    const SettingRow &row = SettingRowOf(setting);
    Q_ASSERT_X(row.Writer == writer, "SaveSetting", "this setting is not the writer's");
    write(row, value);
}

bool SaveSettings(const QList<IniEntry> &entries)
{
    return optionsFile().SaveSettings(entries);
}

void TakeSetting(Setting setting, const QString &stored)
{
    const SettingRow &row = SettingRowOf(setting);
    if (row.Take && !IsHeld(setting))
        row.Take(MendedSetting(setting, stored));
}

bool IsHeld(Setting setting)
{
    const SettingRow &row = SettingRowOf(setting);
    return HeldForThisRun(row.Section.toString(), row.Key.toString()).has_value();
}

void HoldSetting(Setting setting, const QString &value)
{
    const SettingRow &row = SettingRowOf(setting);
    HoldForThisRun(row.Section.toString(), row.Key.toString(), value);
}

void TakeSettings(SettingRead moment)
{
    for (const SettingRow &row : rows) {
        if (row.Read == moment && row.Take)
            take(row);
    }
}

bool TabIsFetchedAtOnce(const QString &section, const QString &tab)
{
    return optionsFile().GetSettingStr(section, tab, u"0"_s) == u"1";
}
