#include "history/HistoryTrouble.h"

#include <QDir>

#include <array>

using namespace Qt::StringLiterals;

namespace {
struct TroubleText
{
    HistoryTrouble Trouble;
    QStringView Text; ///< %1 is the file, %2 where a damaged one was put
};

constexpr std::array<TroubleText, 7> texts{{
    {HistoryTrouble::Busy,
     u"The history (%1) is in use by another program. Searches go on. What you ask for is written "
     "to the history when the other program is done with it."},
    {HistoryTrouble::Full, u"The disk is full, so the history (%1) cannot be written. Searches go "
                           "on, but what you ask for now is missing from the history."},
    {HistoryTrouble::DiskFails,
     u"The history (%1) cannot be written because the disk reports an error. Searches go on, but "
     "what you ask for now is missing from the history."},
    {HistoryTrouble::Damaged, u"The history was damaged and could not be read. It was put aside as "
                              "%2, and a new one was begun. Searches are not affected."},
    {HistoryTrouble::Deleted,
     u"The history (%1) was deleted while this program ran, and a new one was begun. What stood in "
     "it is lost. Searches are not affected."},
    {HistoryTrouble::Newer, u"The history (%1) was made by a later version of this program and is "
                            "left as it is. Nothing is kept of this session. Searches are not "
                            "affected."},
    {HistoryTrouble::CannotWrite,
     u"The history (%1) cannot be written in this folder. Nothing is kept of this session. "
     "Searches are not affected."},
}};
} // namespace

QString ProblemText(HistoryTrouble trouble, const QString &file, const QString &aside)
{
    for (const TroubleText &row : texts) {
        if (row.Trouble == trouble)
            return row.Text.toString()
                .replace(u"%1"_s, QDir::toNativeSeparators(file))
                .replace(u"%2"_s, QDir::toNativeSeparators(aside));
    }
    return {};
}
