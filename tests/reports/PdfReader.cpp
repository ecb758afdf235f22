#include "reports/PdfReader.h"

#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {
QByteArray output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}

double number(const QXmlStreamReader &xml, QLatin1StringView name)
{
    return xml.attributes().value(name).toDouble();
}
} // namespace

QStringList PdfPages(const QString &path)
{
    const QByteArray text =
        output(u"pdftotext"_s, {u"-layout"_s, u"-enc"_s, u"UTF-8"_s, path, u"-"_s});
    QStringList pages = QString::fromUtf8(text).split(u'\f');
    pages.removeLast();
    return pages;
}

QHash<QString, QString> PdfInfo(const QString &path)
{
    QHash<QString, QString> properties;
    const QStringList lines = QString::fromUtf8(output(u"pdfinfo"_s, {path})).split(u'\n');
    for (const QString &line : lines)
        properties.insert(line.section(u':', 0, 0), line.section(u':', 1).trimmed());
    return properties;
}

QList<QList<PdfWord>> PdfWords(const QString &path)
{
    QList<QList<PdfWord>> pages;
    QXmlStreamReader xml(output(u"pdftotext"_s, {u"-bbox"_s, path, u"-"_s}));
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == u"page")
            pages.append(QList<PdfWord>());
        if (!xml.isStartElement() || xml.name() != u"word")
            continue;
        const QPointF corner(number(xml, "xMin"_L1), number(xml, "yMin"_L1));
        const QPointF other(number(xml, "xMax"_L1), number(xml, "yMax"_L1));
        pages.last().append({xml.readElementText(), QRectF(corner, other)});
    }
    return pages;
}
