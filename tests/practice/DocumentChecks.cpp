#include "practice/DocumentChecks.h"

#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {
/// Where the objects of a PDF begin, from the table at its end.
QList<qsizetype> offsetsOf(const QByteArray &bytes, QString &error)
{
    static const QRegularExpression end(u"startxref\\n(\\d+)\\n%%EOF\\n$"_s);
    const auto found =
        end.match(QString::fromLatin1(bytes.last(qMin<qsizetype>(bytes.size(), 64))));
    const qsizetype table = found.captured(1).toLongLong();
    if (!bytes.startsWith("%PDF-1.") || !found.hasMatch()
        || !bytes.mid(table).startsWith("xref\n")) {
        error = u"no PDF, or no table at its end"_s;
        return {};
    }
    const QList<QByteArray> lines = bytes.mid(table).split('\n');
    const qsizetype count = lines[1].mid(2).toLongLong();
    QList<qsizetype> offsets;
    for (qsizetype object = 1; object < count; ++object) {
        const QByteArray line = lines.value(2 + object);
        const qsizetype offset = line.first(10).toLongLong();
        if (line.size() != 19 || !line.endsWith(" 00000 n ")
            || !bytes.mid(offset, 32)
                    .startsWith(QByteArray(QByteArray::number(object) + " 0 obj\n"))) {
            error = u"object %1 is not where the table says"_s.arg(object);
            return {};
        }
        offsets.append(offset);
    }
    return offsets;
}

QByteArray objectAt(const QByteArray &bytes, qsizetype offset)
{
    const qsizetype end = bytes.indexOf("\nendobj\n", offset);
    const qsizetype begin = bytes.indexOf('\n', offset) + 1;
    return bytes.sliced(begin, end - begin);
}

QString textOf(const QByteArray &stream, QString &error)
{
    static const QRegularExpression form(u"^<< /Length (\\d+) >>\\nstream\\n(.*)\\nendstream$"_s,
                                         QRegularExpression::DotMatchesEverythingOption);
    const auto found = form.match(QString::fromLatin1(stream));
    if (!found.hasMatch() || found.captured(2).size() != found.captured(1).toLongLong()) {
        error = u"a stream is not as long as it says"_s;
        return {};
    }
    QString text;
    static const QRegularExpression line(u"\\((.*)\\) Tj"_s);
    auto lines = line.globalMatch(found.captured(2));
    while (lines.hasNext())
        text +=
            lines.next().captured(1).replace(u"\\("_s, u"("_s).replace(u"\\)"_s, u")"_s) + u'\n';
    return text;
}

/// The fields of a page of a TIFF, by tag.
QMap<int, quint32> fieldsAt(const QByteArray &bytes, qsizetype at, quint32 &next)
{
    QMap<int, quint32> fields;
    const auto count = qFromLittleEndian<quint16>(bytes.constData() + at);
    for (int i = 0; i < count; ++i) {
        const char *field = bytes.constData() + at + 2 + qsizetype{i} * 12;
        const auto type = qFromLittleEndian<quint16>(field + 2);
        const auto number = qFromLittleEndian<quint32>(field + 4);
        const bool isShort = type == 3 && number == 1;
        fields[qFromLittleEndian<quint16>(field)] =
            isShort ? qFromLittleEndian<quint16>(field + 8) : qFromLittleEndian<quint32>(field + 8);
    }
    next = qFromLittleEndian<quint32>(bytes.constData() + at + 2 + qsizetype{count} * 12);
    return fields;
}

/// Nothing when the packed bytes end within a run.
QByteArray unpacked(QByteArrayView packed)
{
    QByteArray pixels;
    for (qsizetype at = 0; at < packed.size();) {
        const auto code = static_cast<qint8>(packed[at++]);
        const qsizetype taken = code >= 0 ? code + 1 : code == -128 ? 0 : 1;
        if (at + taken > packed.size())
            return {};
        if (code >= 0)
            pixels += packed.sliced(at, taken).toByteArray();
        else if (taken > 0)
            pixels += QByteArray(1 - code, packed[at]);
        at += taken;
    }
    return pixels;
}

QString pageError(const QMap<int, quint32> &fields, const QByteArray &bytes)
{
    const QMap<int, quint32> needed{{258, 1}, {259, 32'773}, {262, 0}, {277, 1}, {296, 2}};
    for (auto field = needed.begin(); field != needed.end(); ++field) {
        if (fields.value(field.key()) != field.value())
            return u"field %1 is %2"_s.arg(field.key()).arg(fields.value(field.key()));
    }
    if (fields[278] != fields[257] || qint64{fields[273]} + fields[279] > bytes.size())
        return u"the strip is not the page"_s;
    const char *resolution = bytes.constData() + fields[282];
    if (qFromLittleEndian<quint32>(resolution) != 100
        || qFromLittleEndian<quint32>(resolution + 4) != 1)
        return u"no resolution"_s;
    return {};
}
} // namespace

PdfPages ReadPdf(const QByteArray &bytes)
{
    PdfPages pages;
    const QList<qsizetype> offsets = offsetsOf(bytes, pages.error);
    if (!pages.error.isEmpty())
        return pages;
    const auto object = [&](qsizetype number) {
        return objectAt(bytes, offsets.value(number - 1));
    };
    if (!object(1).contains("/Type /Catalog") || !object(3).contains("/BaseFont"))
        pages.error = u"no catalogue or font"_s;
    static const QRegularExpression tree(u"/Count (\\d+) /Kids \\[ (.*) \\]"_s);
    const auto found = tree.match(QString::fromLatin1(object(2)));
    const QStringList kids = found.captured(2).split(u" 0 R"_s, Qt::SkipEmptyParts);
    if (kids.size() != found.captured(1).toLongLong())
        pages.error = u"the tree counts other pages than it has"_s;
    static const QRegularExpression contents(u"/Contents (\\d+) 0 R"_s);
    for (const QString &kid : kids) {
        const QString page = QString::fromLatin1(object(kid.trimmed().toLongLong()));
        if (!page.contains(u"/Type /Page ") || !page.contains(u"/MediaBox"))
            pages.error = u"a page is none"_s;
        pages.texts.append(
            textOf(object(contents.match(page).captured(1).toLongLong()), pages.error));
    }
    return pages;
}

TiffPages ReadTiff(const QByteArray &bytes)
{
    TiffPages pages;
    if (!bytes.startsWith(QByteArray("II*\0", 4))) {
        pages.error = u"no TIFF"_s;
        return pages;
    }
    auto directory = qFromLittleEndian<quint32>(bytes.constData() + 4);
    while (directory != 0 && pages.error.isEmpty()) {
        if (directory % 2 != 0 || qint64{directory} + 6 > bytes.size()) {
            pages.error = u"a directory lies nowhere"_s;
            break;
        }
        quint32 next = 0;
        QMap<int, quint32> fields = fieldsAt(bytes, directory, next);
        pages.error = pageError(fields, bytes);
        if (!pages.error.isEmpty())
            break;
        const QByteArray pixels = unpacked(QByteArrayView(bytes).sliced(fields[273], fields[279]));
        if (pixels.size() != qsizetype{fields[257]} * ((fields[256] + 7) / 8))
            pages.error = u"the pixels are no page"_s;
        pages.pixels.append(pixels);
        directory = next;
    }
    return pages;
}

QString ViewersComplaint(const QByteArray &bytes, const QString &suffix)
{
    const QString program =
        QStandardPaths::findExecutable(suffix == u"pdf" ? u"pdfinfo"_s : u"tiffinfo"_s);
    if (program.isEmpty())
        return {};
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"document."_s + suffix);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        return u"not written"_s;
    QProcess viewer;
    viewer.start(program, {path});
    if (!viewer.waitForFinished() || viewer.exitCode() != 0)
        return u"%1 fails: "_s.arg(program) + QString::fromLocal8Bit(viewer.readAllStandardError());
    return QString::fromLocal8Bit(viewer.readAllStandardError());
}
