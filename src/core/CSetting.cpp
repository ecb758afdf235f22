#include "core/CSetting.h"

#include "core/AppFolder.h"
#include "core/AtomicFile.h"
#include "core/IniText.h"
#include "core/Log.h"
#include "core/RunSettings.h"
#include "core/RunTimeError.h"
#include "core/UserStore.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <functional>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
/// The profile calls fill a buffer of 8192 characters, the closing NUL included.
constexpr qsizetype longestValue = 8191;

QString iniPath(const QString &name)
{
    const bool hasEnding = name.right(4).toLower() == u".ini";
    return AppFile(hasEnding ? name : QString(name + u".ini"_s));
}

QByteArray textOf(const QString &path)
{
    // A file that is not there is no error: every key then reads as its default.
    if (!QFileInfo::exists(path))
        return {};
    try {
        return FileContent(path);
    } catch (const RunTimeError &) {
        // Once more: one bad moment of a disk would count as the default of a setting.
        return FileContent(path);
    }
}

void changeFile(const QString &path, const std::function<QByteArray(const QByteArray &)> &change)
{
    const QByteArray before = textOf(path);
    const QByteArray after = change(before);
    if (after != before && !ReplaceFileContent(path, after))
        throw RunTimeError::PathFileAccess();
}

/// The whole number that a text begins with, as the profile call reads it. Throws error 6.
qint16 leadingInteger(const QString &text)
{
    qint32 value = 0;
    qsizetype i = 0;
    const bool negative = text.startsWith(u'-');
    if (negative)
        ++i;
    for (; i < text.size() && text[i] >= u'0' && text[i] <= u'9'; ++i) {
        value = value * 10 + (text[i].unicode() - u'0');
        if (value > std::numeric_limits<qint16>::max())
            throw RunTimeError::Overflow();
    }
    return static_cast<qint16>(negative ? -value : value);
}

/// What a reader gets of a value.
QString readable(const QString &raw)
{
    const QString value = raw.left(longestValue).trimmed();
    const qsizetype nul = value.indexOf(QChar::Null);
    return nul < 0 ? value : value.left(nul);
}

/// A text that stands in quotes would be read without them: a second pair keeps the first.
QString quotedForFile(const QString &text)
{
    const bool quoted = text.size() > 1 && (text.front() == u'"' || text.front() == u'\'')
                        && text.back() == text.front();
    return quoted ? u'"' + text + u'"' : text;
}

QByteArray textWith(const QByteArray &text, const IniEntry &entry)
{
    const auto now = IniValue(text, entry.Section, entry.Key);
    if (now && readable(*now) == entry.Value)
        return text;
    return IniTextWithValue(text, entry.Section, entry.Key, quotedForFile(entry.Value));
}

void logTrap(const QString &text, const QString &section, const QString &key, const QString &source)
{
    WriteAppInfo(text + section + u", "_s + key + u" - "_s + source);
}
} // namespace

void CSetting::Init(const QString &name, bool iniMode)
{
    fileName = name.trimmed();
    if (fileName.isEmpty())
        fileName = QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName();
    fullPath = iniPath(fileName);
    IniMode = iniMode;
}

/// What the key is held at for this run; such keys are those of options.ini.
std::optional<QString> CSetting::heldValue(const QString &section, const QString &key) const
{
    const bool options =
        QFileInfo(fullPath).fileName().compare(u"options.ini", Qt::CaseInsensitive) == 0;
    return options ? HeldForThisRun(section, key) : std::nullopt;
}

QString CSetting::readText(const QString &section, const QString &key, const QString &fallback)
{
    if (!IniMode)
        return UserStoreValue(section, key, fallback);
    if (const auto held = heldValue(section, key))
        return *held;
    return IniValue(textOf(fullPath), section, key).value_or(fallback);
}

void CSetting::writeText(const QString &section, const QString &key, const QString &value)
{
    if (!IniMode) {
        SaveUserStoreValue(section, key, value);
        return;
    }
    if (heldValue(section, key))
        return;
    changeFile(fullPath,
               [&](const QByteArray &text) { return IniTextWithValue(text, section, key, value); });
}

QString CSetting::GetSettingStr(const QString &section, const QString &key, const QString &fallback)
{
    try {
        if (fileName.isEmpty())
            Init(u"Options"_s, true);
        return readable(readText(section, key, fallback));
    } catch (const RunTimeError &) {
        logTrap(u"Error reading Setting "_s, section, key, u"CSetting.GetSettingStr"_s);
        return fallback;
    }
}

qint16 CSetting::GetSettingInt(const QString &section, const QString &key, qint16 fallback)
{
    try {
        if (fileName.isEmpty())
            Init({}, false);
        return leadingInteger(readText(section, key, QString::number(fallback)).trimmed());
    } catch (const RunTimeError &) {
        logTrap(u"Error reading Setting "_s, section, key, u"CSetting.GetSettingInt"_s);
        return fallback;
    }
}

void CSetting::SaveSettingStr(const QString &section, const QString &key, const QString &value)
{
    try {
        if (fileName.isEmpty())
            Init({}, false);
        writeText(section, key, value);
    } catch (const RunTimeError &) {
        logTrap(u"Error writing Setting "_s, section, key, u"CSetting.SaveSettingStr"_s);
    }
}

void CSetting::ReplaceSettingStr(const QString &section, const QString &key, const QString &read,
                                 const QString &value)
{
    try {
        if (heldValue(section, key))
            return;
        changeFile(fullPath, [&](const QByteArray &text) {
            const auto now = IniValue(text, section, key);
            return now && readable(*now) != read ? text
                                                 : IniTextWithValue(text, section, key, value);
        });
    } catch (const RunTimeError &) {
        logTrap(u"Error writing Setting "_s, section, key, u"CSetting.SaveSettingStr"_s);
    }
}

void CSetting::SaveSettingInt(const QString &section, const QString &key, qint16 value)
{
    try {
        if (fileName.isEmpty())
            Init({}, false);
        writeText(section, key, QString::number(value));
    } catch (const RunTimeError &) {
        logTrap(u"Error writing Setting "_s, section, key, u"CSetting.SaveSettingInt"_s);
    }
}

bool CSetting::SaveSettings(const QList<IniEntry> &entries)
{
    try {
        changeFile(fullPath, [&](QByteArray text) {
            for (const IniEntry &entry : entries) {
                if (!heldValue(entry.Section, entry.Key))
                    text = textWith(text, entry);
            }
            return text;
        });
        return true;
    } catch (const RunTimeError &) {
        const IniEntry first = entries.value(0);
        logTrap(u"Error writing Setting "_s, first.Section, first.Key, u"CSetting.SaveSettings"_s);
        return false;
    }
}

void CSetting::DeleteSection(const QString &section, const QString &file)
{
    try {
        changeFile(iniPath(file),
                   [&](const QByteArray &text) { return IniTextWithoutSection(text, section); });
    } catch (const RunTimeError &) {
        logTrap(u"Error writing Setting "_s, section, {}, u"CSetting.DeleteSection"_s);
    }
}

void CSetting::DeleteKey(const QString &section, const QString &key, const QString &file)
{
    try {
        changeFile(iniPath(file),
                   [&](const QByteArray &text) { return IniTextWithoutKey(text, section, key); });
    } catch (const RunTimeError &) {
        logTrap(u"Error writing Setting "_s, section, key, u"CSetting.DeleteKey"_s);
    }
}
