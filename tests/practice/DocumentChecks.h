#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// What a viewer needs of a document, read from its bytes.

/// The pages of a PDF, each as the text that it shows; `error` says what a viewer would trip over.
struct PdfPages
{
    QStringList texts;
    QString error;
};
PdfPages ReadPdf(const QByteArray &bytes);

/// The pages of a TIFF, each as its rows of pixels.
struct TiffPages
{
    QList<QByteArray> pixels;
    QString error;
};
TiffPages ReadTiff(const QByteArray &bytes);

/// What a program of this machine that reads such files says against one; nothing when it is
/// content or there is no such program. `suffix` is "pdf" or "tif".
QString ViewersComplaint(const QByteArray &bytes, const QString &suffix);
