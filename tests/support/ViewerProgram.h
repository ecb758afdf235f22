#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/// While it lives, the desktop opens files with a program of the test's, which notes its arguments
/// in this folder, each call for itself.
class ViewerProgram
{
public:
    explicit ViewerProgram(const QString &folder);
    ~ViewerProgram();
    ViewerProgram(const ViewerProgram &) = delete;
    ViewerProgram &operator=(const ViewerProgram &) = delete;

    /// The arguments of each call that has noted them.
    QList<QStringList> Calls() const;

private:
    QString notes; ///< a folder
    QByteArray pathBefore;
};
