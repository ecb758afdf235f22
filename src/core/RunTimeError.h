#pragma once

#include <QString>
#include <QStringList>

#include <exception>

/// A run-time error with its number, thrown by the checked helpers and caught by the procedures
/// that trap. None may leave a slot.
class RunTimeError : public std::exception
{
public:
    RunTimeError(int number, QString description);

    int Number() const { return number; }
    const QString &Description() const { return description; }
    const char *what() const noexcept override { return utf8.constData(); }

    static RunTimeError Overflow() { return {6, QStringLiteral("Overflow")}; }
    static RunTimeError SubscriptOutOfRange();
    static RunTimeError TypeMismatch() { return {13, QStringLiteral("Type mismatch")}; }
    static RunTimeError FileNotFound() { return {53, QStringLiteral("File not found")}; }
    static RunTimeError DiskFull() { return {61, QStringLiteral("Disk full")}; }
    static RunTimeError PermissionDenied() { return {70, QStringLiteral("Permission denied")}; }
    static RunTimeError PathFileAccess() { return {75, QStringLiteral("Path/File access error")}; }
    static RunTimeError PathNotFound() { return {76, QStringLiteral("Path not found")}; }

private:
    int number;
    QString description;
    QByteArray utf8;
};

/// Field `index` of `fields`, counted from 0. Throws error 9, "Subscript out of range".
const QString &FieldAt(const QStringList &fields, qsizetype index);

/// The 16-bit whole number that `text` stands for; blanks around it are allowed. Throws error 13
/// ("Type mismatch") when it is no number and 6 ("Overflow") when it does not fit.
qint16 ToInteger(const QString &text);
