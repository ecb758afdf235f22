#pragma once

#include "core/CSetting.h"

#include <QString>

#include <span>

// Every setting of options.ini that the program knows is a row of one table. Whoever reads or
// writes one names its row. The server may rewrite any key of the file at a login, known here or
// not: what was read before holds until it is read again.

/// The settings, in the order of the table, which is the order in which a start takes them.
enum class Setting {
    // With the main window
    ShowAlerts,
    BatchSearch,
    ReportName,
    SearchTimeout,
    SearchingMsgs,
    // At the start
    EnableMRU,
    EnableAcctg,
    MaxIndexResults,
    DefaultView,
    DefaultWaCounty,
    DefaultOrCounty,
    DefaultIdCounty,
    ReportFolder,
    ServerPort,
    DefaultToWaIndex,
    PrintHdr,
    PrintHdrVal,
    // When they are needed
    InactivityTimeOut,
    ServerIP1, ///< the five addresses stand one behind the other
    ServerIP2,
    ServerIP3,
    ServerIP4,
    ServerIP5,
    RememberPwd,
    UserName,
    UserPwd,
    DefaultIP,
    ImageCounties,
    KeepHistory,
    HistoryDays
};

/// What becomes of the text in the file.
enum class SettingRule {
    AsItIs,
    AbsentIsDefault, ///< absent: the key is missing, or has the word that stands for that
    EmptyIsDefault,  ///< absent, or nothing behind the "="
    PositiveNumber,  ///< a whole number of 16 bits from 1 on; anything else is the default
    OnlyOneIsOn,     ///< "1" for "1" and "0" for anything else
    OnlyZeroIsOff,   ///< absent is the default; "0" for "0", and "1" for anything else
    UpToThirty,      ///< compared as text: below "0" or above "30" is the default
    Folder           ///< a folder that is there, or the default one beside the program
};

/// When a setting is read.
enum class SettingRead { WithMainWindow, AtStart, WhenNeeded };

/// Who changes a setting, apart from the server, the person at the file, and the options window,
/// which has a table of its own.
enum class SettingWriter {
    Nobody,
    Connecting, ///< the port that answered
    Login,
    Accounting,
    BatchEntry,
    ChoiceOfAddress ///< in the options window, at the choice
};

/// One setting.
struct SettingRow
{
    Setting Id;
    QStringView Section;
    QStringView Key;
    QStringView Absent; ///< what a missing key reads as
    QStringView Default;
    SettingRule Rule;
    SettingRead Read;
    SettingWriter Writer;
    bool KeptAtStart;                   ///< a start writes an absent one with its default
    void (*Take)(const QString &value); ///< where a start keeps the value; nullptr for nowhere
    QStringView SavedSection; ///< as they are written, where that differs in capitals; "" otherwise
    QStringView SavedKey;
};

/// The whole table.
std::span<const SettingRow> SettingRows();
const SettingRow &SettingRowOf(Setting setting);

/// The text of a setting as the file has it, read now.
QString ReadSetting(Setting setting);

/// What the rule of a setting makes of such a text.
QString MendedSetting(Setting setting, const QString &stored);

/// Both: what a setting is now.
QString SettingValue(Setting setting);

/// Writes a setting. `writer` is who the table says.
void SaveSetting(Setting setting, SettingWriter writer, const QString &value);

/// Writes keys of options.ini, all at once; a line that reads as it is to be stays as it is. For
/// the options window, whose table says what is written. False when the file could not be written.
bool SaveSettings(const QList<IniEntry> &entries);

/// Has the program use what the rule of a setting makes of this text, as a start that reads it
/// would. A setting that is held for this run stays as it is held, and one that a start keeps
/// nowhere has no effect.
void TakeSetting(Setting setting, const QString &stored);

/// Whether a setting is held for this run, so that the file's own value is not in force.
bool IsHeld(Setting setting);

/// Has a setting read as this value until the program ends; the file keeps its own.
void HoldSetting(Setting setting, const QString &value);

/// Takes all settings that are read at this moment, and writes an absent one where the table says
/// so.
void TakeSettings(SettingRead moment);

/// How many server addresses there are, and the setting of one, from 0.
constexpr int serverAddressCount = 5;
constexpr Setting ServerAddress(int index)
{
    return static_cast<Setting>(static_cast<int>(Setting::ServerIP1) + index);
}

/// Whether a tab of a case is fetched with its summary. There is a section for each court, with a
/// key for each tab: "1" fetches it.
bool TabIsFetchedAtOnce(const QString &section, const QString &tab);
