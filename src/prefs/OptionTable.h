#pragma once

#include "core/Settings.h"

#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <span>

// The options as a table: a row for each control that shows a setting, in the order in which they
// are read. What a setting means, and what a start makes of it, stands in core/Settings.h; where
// the options read or write one in another way, its row says so and why.

/// The kinds of control.
enum class OptionKind {
    Check,   ///< a check box: "1" or "0"
    List,    ///< a combo box: the text that is chosen
    Buttons, ///< a row of radio buttons: the court of the one that is on
    Text,    ///< an entry field
    Folder,  ///< a field that other controls fill with a folder
    Label    ///< shown only
};

/// What the options make of the text in the file.
enum class OptionRule {
    OnlyOneIsOn,   ///< "1" for "1" and "0" for anything else
    AsAtStart,     ///< the setting's own rule
    NativeFolder,  ///< the same, as the platform writes a folder
    ThreeToThirty, ///< compared as text: below "3" or above "30" is "3"
    OneToFive,     ///< a whole number from 1 to 5; anything else is "2"
    Jurisdiction,  ///< "WA", "OR", "ID" or "FED" in their usual spellings; anything else is "WA"
    OneOfTheList,  ///< an address of the list; its first one when the file names none of them
    AsItIs
};

/// When the options write a setting.
enum class OptionSave { WithOk, AtTheClick, Never };

/// The groups of check boxes that have a button of their own for their defaults.
enum class OptionGroup { None, Superior, Civil, NonCivil, Oregon, Idaho };

/// One control.
struct OptionRow
{
    QStringView Control; ///< its name
    OptionKind Kind;
    std::optional<Setting> Known; ///< its row in the table of settings; what has none is a tab
    QStringView Section;          ///< of a tab
    QStringView Key;
    QStringView SavedSection; ///< where that differs; "" otherwise
    OptionRule Rule;
    OptionSave Save;
    bool InForce; ///< the program uses it from OK on; otherwise from when it reads it again
    OptionGroup Group;
    QStringView Reason; ///< why the row is not like the others; "" for one that is
};

/// How many controls there are.
constexpr int optionCount = 42;

/// The whole table.
std::span<const OptionRow> OptionRows();

/// The row of a control. There must be one of this name.
const OptionRow &OptionRowOf(QStringView control);

/// The section and the key in which an option is read.
QString OptionSection(const OptionRow &row);
QString OptionKey(const OptionRow &row);

/// What an option is when the file does not have it.
QString OptionDefault(const OptionRow &row);

/// The options as the controls show them: a text for each, "1" and "0" for a check box.
struct OptionValues
{
    std::array<QString, optionCount> Texts;
    QStringList Servers;         ///< the addresses to choose from
    bool ServersMissing = false; ///< the file has no first address; those of Servers are built in

    QString &operator[](QStringView control);
    const QString &operator[](QStringView control) const;
};

/// Reads all options, in the order of the table. Writes nothing.
OptionValues LoadOpts();

/// What SaveOpts writes, in the order of the table; `loaded` is what LoadOpts gave and `now` what
/// the controls show.
QList<IniEntry> OptionEntries(const OptionValues &loaded, const OptionValues &now);

/// Writes all options, and has the program use those that are in force at once. What reads as it is
/// to be already stays as it is in the file. False when the file could not be written; the options
/// are in force all the same.
bool SaveOpts(const OptionValues &loaded, const OptionValues &now);

/// The two addresses that are listed when the file has none. They belong to no host: the provider
/// names the real ones.
constexpr std::array<QStringView, 2> builtInServers{u"192.0.2.1", u"192.0.2.2"};

/// The folder in which reports lie unless the user says otherwise, as the platform writes it.
QString StandardReportFolder();

/// The port that a text names, a whole number from 1 to 65535; nullopt for any other text.
std::optional<int> PortOf(const QString &text);

/// Why a text cannot be kept in the file so that it reads as it was; "" for one that can.
QString WhyNotKept(const QString &text);

/// After how many minutes without traffic the end of the session is announced: the minutes are
/// counted up as text until they are not below the setting, which need not be its number.
int IdleMinutes(const QString &inactivityTimeOut);
