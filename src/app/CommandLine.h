#pragma once

#include <QString>
#include <QStringList>

/// What the command line asks for.
struct StartOptions
{
    QString Folder;         ///< application folder; empty for the usual one
    bool Practice = false;  ///< search made-up records on a court of our own
    bool Tour = false;      ///< play the main job by itself and end
    bool NewSearch = false; ///< show the search form, also of a copy that runs already
    QString Output;         ///< where the tour puts its pictures
    QString Information;    ///< help or version to print, and then to end
    QString Error;          ///< what is wrong with the command line, "" when nothing
};

/// Reads the arguments, the program's name first. Touches nothing else, so that help and version
/// are printed on a machine without a display too.
StartOptions ReadCommandLine(const QStringList &arguments);
