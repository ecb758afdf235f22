#include "support/MailProgram.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

MailProgram::MailProgram(const QString &folder, int exitCode)
    : MailProgram(folder, u"exit "_s + QString::number(exitCode))
{
}

MailProgram::MailProgram(const QString &folder, const QString &shellWords)
    : notes(folder + u"/bin/arguments"_s), pathBefore(qgetenv("PATH"))
{
    QDir(folder).mkdir(u"bin"_s);
    QFile script(folder + u"/bin/xdg-email"_s);
    if (script.open(QIODevice::WriteOnly)) {
        script.write("#!/bin/sh\nprintf '%s\\0' \"$@\" >'" + QFile::encodeName(notes)
                     + ".new'\nmv '" + QFile::encodeName(notes) + ".new' '"
                     + QFile::encodeName(notes) + "'\n" + shellWords.toUtf8() + '\n');
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    qputenv("PATH", QFile::encodeName(folder) + "/bin:" + pathBefore);
}

MailProgram::~MailProgram()
{
    qputenv("PATH", pathBefore);
}

bool MailProgram::WasCalled() const
{
    return QFile::exists(notes);
}

QStringList MailProgram::Arguments() const
{
    QFile file(notes);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList arguments = QString::fromUtf8(file.readAll()).split(QChar(0));
    arguments.removeLast();
    return arguments;
}

NoMailProgram::NoMailProgram() : pathBefore(qgetenv("PATH"))
{
    qputenv("PATH", "/nowhere");
}

NoMailProgram::~NoMailProgram()
{
    qputenv("PATH", pathBefore);
}
