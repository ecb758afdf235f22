#include "prefs/OptionTable.h"

#include "core/AppFolder.h"
#include "core/TextUtilities.h"
#include "core/Windows1252.h"

#include <QDir>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {
using enum OptionRule;

constexpr QStringView on = u"1";
constexpr QStringView off = u"0";
/// What stands for an address that is not there.
constexpr QStringView noAddress = u"0";
constexpr QStringView shortestIdle = u"3";
constexpr QStringView longestIdle = u"30";
constexpr int longestTimeOut = 5;
constexpr QStringView standardTimeOut = u"2";
constexpr int greatestPort = 65535;

constexpr QStringView sharedReason =
    u"The boxes of non-civil cases have always been saved among those of civil ones, while cases "
    "and this window read them from a section of their own: so they do not come back, and are set "
    "in the file. Where a civil case has a tab of the same name, its box goes before.";

constexpr OptionRow tab(QStringView control, QStringView section, QStringView key,
                        OptionGroup group, QStringView savedSection = u"")
{
    return {control,
            OptionKind::Check,
            std::nullopt,
            section,
            key,
            savedSection,
            OnlyOneIsOn,
            OptionSave::WithOk,
            false,
            group,
            savedSection.isEmpty() ? QStringView(u"") : sharedReason};
}

constexpr OptionRow inForce(QStringView control, OptionKind kind, Setting setting, OptionRule rule,
                            QStringView reason = u"")
{
    return {control,           kind,  setting, u"", u"", u"", rule, OptionSave::WithOk, true,
            OptionGroup::None, reason};
}

constexpr OptionRow later(QStringView control, OptionKind kind, Setting setting, OptionRule rule,
                          OptionSave save, QStringView reason)
{
    return {control, kind, setting, u"", u"", u"", rule, save, false, OptionGroup::None, reason};
}

constexpr std::array<OptionRow, optionCount> rows{{
    tab(u"chkSearchCaseTabs_0", u"CaseSearchTabs", u"Names", OptionGroup::Superior),
    tab(u"chkSearchCaseTabs_1", u"CaseSearchTabs", u"Docket", OptionGroup::Superior),
    tab(u"chkSearchCaseTabs_2", u"CaseSearchTabs", u"Judgments", OptionGroup::Superior),
    tab(u"chkSearchCaseTabs_3", u"CaseSearchTabs", u"Charges", OptionGroup::Superior),
    tab(u"chkSearchCaseTabs_4", u"CaseSearchTabs", u"Sentence", OptionGroup::Superior),
    tab(u"chkSearchCaseTabs_5", u"CaseSearchTabs", u"Accounting", OptionGroup::Superior),
    tab(u"chkSearchCaseTabs_6", u"CaseSearchTabs", u"Schedule", OptionGroup::Superior),
    tab(u"chkSearchCaseTabs_7", u"CaseSearchTabs", u"Documents", OptionGroup::Superior),
    tab(u"chkSearchCaseTabs_8", u"CivilCaseTabs", u"Names", OptionGroup::Civil),
    tab(u"chkSearchCaseTabs_9", u"CivilCaseTabs", u"Docket", OptionGroup::Civil),
    tab(u"chkSearchCaseTabs_10", u"CivilCaseTabs", u"Judgments", OptionGroup::Civil),
    tab(u"chkSearchCaseTabs_11", u"NonCivilCaseTabs", u"Names", OptionGroup::NonCivil,
        u"CivilCaseTabs"),
    tab(u"chkSearchCaseTabs_12", u"NonCivilCaseTabs", u"Docket", OptionGroup::NonCivil,
        u"CivilCaseTabs"),
    tab(u"chkSearchCaseTabs_13", u"NonCivilCaseTabs", u"Violations", OptionGroup::NonCivil,
        u"CivilCaseTabs"),
    tab(u"chkOrTabOpts_0", u"OrCaseSearchTabs", u"Names", OptionGroup::Oregon),
    tab(u"chkOrTabOpts_1", u"OrCaseSearchTabs", u"Docket", OptionGroup::Oregon),
    tab(u"chkOrTabOpts_2", u"OrCaseSearchTabs", u"Judgments", OptionGroup::Oregon),
    tab(u"chkOrTabOpts_3", u"OrCaseSearchTabs", u"Charges", OptionGroup::Oregon),
    tab(u"chkOrTabOpts_4", u"OrCaseSearchTabs", u"Sentence", OptionGroup::Oregon),
    tab(u"chkOrTabOpts_5", u"OrCaseSearchTabs", u"Finance", OptionGroup::Oregon),
    tab(u"chkOrTabOpts_6", u"OrCaseSearchTabs", u"Accounting", OptionGroup::Oregon),
    tab(u"chkIdaho_0", u"IdCaseSearchTabs", u"Names", OptionGroup::Idaho),
    tab(u"chkIdaho_1", u"IdCaseSearchTabs", u"Docket", OptionGroup::Idaho),
    tab(u"chkIdaho_2", u"IdCaseSearchTabs", u"Judgments", OptionGroup::Idaho),
    tab(u"chkIdaho_3", u"IdCaseSearchTabs", u"Charges", OptionGroup::Idaho),
    later(u"chkEnableMRU", OptionKind::Check, Setting::EnableMRU, AsAtStart, OptionSave::WithOk,
          u"The search form takes it when it is loaded: lists do not come or go while it is open."),
    inForce(u"chkEnableAcctg", OptionKind::Check, Setting::EnableAcctg, AsAtStart),
    later(u"cboxHvServerIPs", OptionKind::List, Setting::DefaultIP, OneOfTheList,
          OptionSave::AtTheClick,
          u"The choice is kept when it is made, whether OK or Cancel follows. Connecting tries the "
          "addresses in their own order all the same."),
    inForce(u"chkShowAlerts", OptionKind::Check, Setting::ShowAlerts, AsAtStart),
    inForce(u"chkBatchSearch", OptionKind::Check, Setting::BatchSearch, AsAtStart),
    later(
        u"cboxInactiveMins", OptionKind::List, Setting::InactivityTimeOut, ThreeToThirty,
        OptionSave::WithOk,
        u"The count of idle minutes takes \"0\" to \"30\", and this window \"3\" and \"30\" alone "
        "of what it is offered, both by their letters. The count reads the file each minute."),
    inForce(u"cboxSearchTimeout", OptionKind::List, Setting::SearchTimeout, OneToFive,
            u"A start takes any positive number and has 1 for the rest; the list ends at 5, and "
            "begins at 2 for what it does not have."),
    inForce(u"cboxMaxSearchingMsgs", OptionKind::List, Setting::SearchingMsgs, AsAtStart),
    inForce(u"optDefaultState", OptionKind::Buttons, Setting::DefaultView, Jurisdiction,
            u"A start takes any text as it is; there is a button for four of them."),
    inForce(u"Text1", OptionKind::Folder, Setting::ReportFolder, NativeFolder),
    inForce(u"txtPort", OptionKind::Text, Setting::ServerPort, AsAtStart),
    inForce(u"chkDefaultToIndex", OptionKind::Check, Setting::DefaultToWaIndex, AsAtStart),
    inForce(u"chkPrintoutName", OptionKind::Check, Setting::PrintHdr, AsAtStart),
    inForce(u"txtPrintName", OptionKind::Text, Setting::PrintHdrVal, AsAtStart),
    inForce(u"chkKeepHistory", OptionKind::Check, Setting::KeepHistory, AsAtStart),
    inForce(u"cboxHistoryDays", OptionKind::List, Setting::HistoryDays, AsAtStart),
    later(u"lblImageCounties", OptionKind::Label, Setting::ImageCounties, AsItIs, OptionSave::Never,
          u"The provider sets it, and nothing but this window reads it."),
}};

static_assert(!rows.back().Control.empty());

struct Spelling
{
    QStringView Written;
    QStringView State;
};
constexpr std::array<Spelling, 11> spellings{{{u"OR", u"OR"},
                                              {u"Or", u"OR"},
                                              {u"or", u"OR"},
                                              {u"WA", u"WA"},
                                              {u"Wa", u"WA"},
                                              {u"wa", u"WA"},
                                              {u"ID", u"ID"},
                                              {u"id", u"ID"},
                                              {u"FED", u"FED"},
                                              {u"Fed", u"FED"},
                                              {u"fed", u"FED"}}};

QString stateOf(const QString &written)
{
    const auto *found = std::find_if(spellings.begin(), spellings.end(),
                                     [&](const Spelling &one) { return one.Written == written; });
    return found == spellings.end() ? u"WA"_s : found->State.toString();
}

QString minutesOf(const QString &written)
{
    return written < shortestIdle || written > longestIdle ? shortestIdle.toString() : written;
}

QString timeOutOf(const QString &written)
{
    const int minutes = written.toInt();
    return minutes < 1 || minutes > longestTimeOut ? standardTimeOut.toString()
                                                   : QString::number(minutes);
}

QString storedText(const OptionRow &row)
{
    if (row.Known)
        return ReadSetting(*row.Known);
    return (TabIsFetchedAtOnce(row.Section.toString(), row.Key.toString()) ? on : off).toString();
}

QString shownText(const OptionRow &row, const OptionValues &values)
{
    const QString stored = storedText(row);
    switch (row.Rule) {
    case OnlyOneIsOn:
        return (stored == on ? on : off).toString();
    case AsAtStart:
        return MendedSetting(*row.Known, stored);
    case NativeFolder:
        return QDir::toNativeSeparators(MendedSetting(*row.Known, stored));
    case ThreeToThirty:
        return minutesOf(stored);
    case OneToFive:
        return timeOutOf(stored);
    case Jurisdiction:
        return stateOf(stored);
    case OneOfTheList:
        return values.Servers.contains(stored) ? stored : values.Servers.value(0);
    case AsItIs:
        break;
    }
    return stored;
}

bool isAddress(const QString &text)
{
    return !text.isEmpty() && text != noAddress;
}

/// Without a first address nothing of the file can be relied upon.
void loadServers(OptionValues &values)
{
    values.ServersMissing = !isAddress(SettingValue(Setting::ServerIP1));
    if (values.ServersMissing) {
        for (const QStringView address : builtInServers)
            values.Servers.append(address.toString());
        return;
    }
    for (int i = 0; i < serverAddressCount; ++i) {
        const QString address = SettingValue(ServerAddress(i));
        if (isAddress(address))
            values.Servers.append(address);
    }
    values.Servers.removeDuplicates();
}

/// The row that is read where this one is written, if that is another one.
const OptionRow *ownerOfPlace(const OptionRow &row)
{
    if (row.SavedSection.isEmpty())
        return nullptr;
    const auto *found = std::find_if(rows.begin(), rows.end(), [&](const OptionRow &other) {
        return other.Section == row.SavedSection && other.Key == row.Key;
    });
    return found == rows.end() ? nullptr : found;
}

/// Whether a row leaves its place in the file to the one whose place it is: unless the user has
/// changed this one and not that one.
bool leavesPlace(const OptionRow &row, const OptionValues &loaded, const OptionValues &now)
{
    const OptionRow *owner = ownerOfPlace(row);
    const auto changed = [&](const OptionRow &one) {
        return loaded[one.Control] != now[one.Control];
    };
    return owner && (changed(*owner) || !changed(row));
}

/// What a control shows, as a setting: an empty phrase is no phrase.
QString settingText(const OptionRow &row, const QString &shown)
{
    const QString text = shown.trimmed();
    return row.Kind == OptionKind::Text && row.Known ? MendedSetting(*row.Known, text) : text;
}
} // namespace

std::span<const OptionRow> OptionRows()
{
    return rows;
}

const OptionRow &OptionRowOf(QStringView control)
{
    const auto *found = std::find_if(rows.begin(), rows.end(), [control](const OptionRow &row) {
        return row.Control == control;
    });
    Q_ASSERT_X(found != rows.end(), "OptionRowOf", "no such control");
    return *found;
}

QString OptionSection(const OptionRow &row)
{
    return (row.Known ? SettingRowOf(*row.Known).Section : row.Section).toString();
}

QString OptionKey(const OptionRow &row)
{
    return (row.Known ? SettingRowOf(*row.Known).Key : row.Key).toString();
}

QString OptionDefault(const OptionRow &row)
{
    return (row.Known ? SettingRowOf(*row.Known).Default : off).toString();
}

QString &OptionValues::operator[](QStringView control)
{
    return Texts.at(static_cast<size_t>(&OptionRowOf(control) - rows.data()));
}

const QString &OptionValues::operator[](QStringView control) const
{
    return Texts.at(static_cast<size_t>(&OptionRowOf(control) - rows.data()));
}

OptionValues LoadOpts()
{
    OptionValues values;
    for (size_t i = 0; i < rows.size(); ++i) {
        if (rows.at(i).Rule == OneOfTheList)
            loadServers(values);
        values.Texts.at(i) = shownText(rows.at(i), values);
    }
    return values;
}

QList<IniEntry> OptionEntries(const OptionValues &loaded, const OptionValues &now)
{
    QList<IniEntry> entries;
    for (const OptionRow &row : rows) {
        if (row.Save != OptionSave::WithOk || leavesPlace(row, loaded, now))
            continue;
        const QString section =
            row.SavedSection.isEmpty() ? OptionSection(row) : row.SavedSection.toString();
        entries.append({section, OptionKey(row), settingText(row, now[row.Control])});
    }
    return entries;
}

bool SaveOpts(const OptionValues &loaded, const OptionValues &now)
{
    // What the user has left alone is as the file has it by now, whoever wrote it meanwhile.
    const OptionValues present = LoadOpts();
    OptionValues wanted = present;
    for (const OptionRow &row : rows)
        if (now[row.Control] != loaded[row.Control])
            wanted[row.Control] = now[row.Control];
    const bool saved = SaveSettings(OptionEntries(present, wanted));
    for (const OptionRow &row : rows) {
        const QString text = settingText(row, wanted[row.Control]);
        if (row.Kind == OptionKind::Folder)
            QDir().mkpath(QDir::fromNativeSeparators(text));
        if (row.InForce)
            TakeSetting(*row.Known, text);
    }
    return saved;
}

QString StandardReportFolder()
{
    return QDir::toNativeSeparators(AppFolder() + u'/'
                                    + SettingRowOf(Setting::ReportFolder).Default);
}

std::optional<int> PortOf(const QString &text)
{
    const QString digits = TrimBlanks(text);
    const bool onlyDigits = std::all_of(digits.begin(), digits.end(), [](QChar character) {
        return character >= u'0' && character <= u'9';
    });
    const int port = digits.toInt();
    if (!onlyDigits || port < 1 || port > greatestPort)
        return std::nullopt;
    return port;
}

QString WhyNotKept(const QString &text)
{
    const QStringList lost = CharactersOutsideWindows1252(text);
    if (!lost.isEmpty())
        return u"The settings file has no letter for "_s + lost.join(u' ') + u'.';
    const bool control = std::any_of(text.begin(), text.end(), [](QChar character) {
        return character.category() == QChar::Other_Control;
    });
    if (control || text != text.trimmed())
        return u"The settings file keeps no blank at an end, and no line end."_s;
    return {};
}

int IdleMinutes(const QString &inactivityTimeOut)
{
    const QString limit = MendedSetting(Setting::InactivityTimeOut, inactivityTimeOut);
    int minutes = 0;
    while (QString::number(minutes) < limit)
        ++minutes;
    return minutes + 1;
}
