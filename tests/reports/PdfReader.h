#pragma once

#include <QHash>
#include <QList>
#include <QRectF>
#include <QString>
#include <QStringList>

// Reads a PDF back as another program sees it. What fails ends the test program with the reason.

/// The text of each page, its columns side by side.
QStringList PdfPages(const QString &path);

/// The properties of a PDF, as pdfinfo names them.
QHash<QString, QString> PdfInfo(const QString &path);

struct PdfWord
{
    QString Text;
    QRectF Place; ///< in points from the upper left corner
};
/// The words of each page.
QList<QList<PdfWord>> PdfWords(const QString &path);
