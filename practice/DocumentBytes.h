#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringList>

namespace Practice {
/// What stands on a paper of a case.
struct Paper
{
    QString county;
    QString number; ///< of the case
    QString text;   ///< what the list calls it
    QDate date;
    int place = 0; ///< in the docket
    int pages = 1;
    quint64 seed = 0; ///< of the case: what the words are drawn from
};

/// The lines on page `page` of it, from 1: the case, the paper, the page, and some words. The same
/// whenever they are asked for; no line is longer than 60 characters.
QStringList PaperLines(const Paper &paper, int page);

/// The bytes of a document, made where they are asked for: one of 200 MB takes no more memory than
/// one of two pages.
struct DocumentBytes
{
    QByteArray start;
    qint64 filling = 0; ///< bytes between the two
    QByteArray end;

    qint64 Size() const { return start.size() + filling + end.size(); }
    /// So many bytes from there, or what is left of them.
    QByteArray Part(qint64 offset, qint64 length) const;
};
} // namespace Practice
