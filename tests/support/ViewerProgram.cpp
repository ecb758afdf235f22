#include "support/ViewerProgram.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

ViewerProgram::ViewerProgram(const QString &folder)
    : notes(folder + u"/opened"_s), pathBefore(qgetenv("PATH"))
{
    QDir().mkpath(folder + u"/bin"_s);
    QDir().mkpath(notes);
    QFile script(folder + u"/bin/xdg-open"_s);
    if (script.open(QIODevice::WriteOnly)) {
        const QByteArray note = "'" + QFile::encodeName(notes) + "'/$$";
        script.write("#!/bin/sh\nprintf '%s\\0' \"$@\" > " + note + ".new\nmv " + note + ".new "
                     + note + ".call\n");
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    qputenv("PATH", QFile::encodeName(folder) + "/bin:" + pathBefore);
}

ViewerProgram::~ViewerProgram()
{
    qputenv("PATH", pathBefore);
}

QList<QStringList> ViewerProgram::Calls() const
{
    QList<QStringList> calls;
    const QDir folder(notes);
    const QStringList names = folder.entryList({u"*.call"_s}, QDir::Files);
    for (const QString &name : names) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        QStringList arguments = QString::fromUtf8(file.readAll()).split(QChar(0));
        arguments.removeLast();
        calls.append(arguments);
    }
    return calls;
}
