#pragma once

#include <QList>
#include <QString>

#include <optional>

/// A key of an ini file and what it is to be.
struct IniEntry
{
    QString Section;
    QString Key;
    QString Value;
};

/// Through this class every ini file of the application folder is read and written. Each call goes
/// to the file; nothing is kept, so a change made anywhere is seen everywhere at once.
///
/// A key of options.ini that is held for this run (core/RunSettings.h) reads as it is held and is
/// not written.
///
/// With IniMode off the same calls go to the per-user store of the platform.
class CSetting
{
public:
    /// Names the file. An empty name means the executable's; ".ini" is added when it is missing.
    void Init(const QString &fileName = {}, bool iniMode = true);

    /// The value of a key, trimmed, at most 8191 characters and cut at the first NUL; or `fallback`
    /// when there is none. An unreadable file is logged and gives the fallback.
    QString GetSettingStr(const QString &section, const QString &key, const QString &fallback);

    /// The same as a whole number of 16 bits: the digits that the value begins with, 0 without any.
    qint16 GetSettingInt(const QString &section, const QString &key, qint16 fallback);

    /// Writes the key. A failure leaves the file as it was and is logged.
    void SaveSettingStr(const QString &section, const QString &key, const QString &value);
    void SaveSettingInt(const QString &section, const QString &key, qint16 value);

    /// Writes a key of an ini file whose value was read as `read`, or that was not found. A key
    /// that has another value stays as it is: the file could not be read when it was asked for, and
    /// what the user has chosen would be written over with a default.
    void ReplaceSettingStr(const QString &section, const QString &key, const QString &read,
                           const QString &value);

    /// Writes keys of an ini file, all at once: a crash leaves all of them as they were or as they
    /// are to be. The line of a key that reads as its value already stays as it is, with its quotes
    /// and blanks. False, with a line in the log, when the file could not be written.
    bool SaveSettings(const QList<IniEntry> &entries);

    void DeleteSection(const QString &section, const QString &file);
    void DeleteKey(const QString &section, const QString &key, const QString &file);

    bool SaveMode() const { return IniMode; }
    void SetSaveMode(bool iniMode) { IniMode = iniMode; }

    const QString &FullPath() const { return fullPath; }

private:
    std::optional<QString> heldValue(const QString &section, const QString &key) const;
    QString readText(const QString &section, const QString &key, const QString &fallback);
    void writeText(const QString &section, const QString &key, const QString &value);

    bool IniMode = false;
    QString fullPath;
    QString fileName;
};
