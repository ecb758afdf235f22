#pragma once

#include <QString>

/// The folder in which everything of the program lies: settings, lists, log, reports.
QString AppFolder();

/// Chooses the folder, once, at start: `chosen` when it is not empty; the folder of the executable
/// when that holds options.ini and can be written; otherwise the user's data folder. The folder is
/// created when it is missing. Throws error 76 when that fails.
void ChooseAppFolder(const QString &chosen);

/// The path of a file in the application folder. Names are matched without regard to case, so that
/// "Options.ini" is options.ini; a file that does not exist yet gets the name as given. "\" in
/// `name` is the platform's separator.
QString AppFile(const QString &name);

/// The folder of the data files that are installed with the program, or "" when there is none.
QString InstalledDataFolder();

/// Copies what is missing in the application folder from the installed data files. Returns how many
/// files were copied; a file that cannot be copied is left out and logged.
int CopyMissingDataFiles(const QString &from);

/// Takes the files that the program has written into the application folder, and those that SQLite
/// keeps beside them, from everybody but their owner: settings, log, recent entries and history
/// hold names, numbers and passwords. What the program writes now is so from its first moment; an
/// older version, or a copy, may have left others. Gives the number of files that were open to
/// others.
int KeepFilesForOwner();

/// Makes a folder of documents or reports, and those around it, for their owner only, unless they
/// are there: the names of the files in it tell of cases. False when that fails.
bool MakeOwnFolder(const QString &path);
