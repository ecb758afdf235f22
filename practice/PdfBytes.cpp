#include "practice/PdfBytes.h"

#include <utility>
#include <vector>

namespace Practice {
namespace {
// The objects; behind the font come two for each page, and the stream that fills.
constexpr int catalogue = 1;
constexpr int pageTree = 2;
constexpr int font = 3;
constexpr int firstPage = 4;

int pageObject(int page)
{
    return firstPage + 2 * (page - 1);
}

QByteArray number(qint64 value)
{
    return QByteArray::number(value);
}

QByteArray reference(int object)
{
    return number(object) + " 0 R";
}

QByteArray stringOf(const QString &text)
{
    QByteArray bytes = text.toLatin1();
    bytes.replace('\\', "\\\\").replace('(', "\\(").replace(')', "\\)");
    return '(' + bytes + ')';
}

QByteArray streamOf(const QByteArray &content)
{
    return "<< /Length " + number(content.size()) + " >>\nstream\n" + content + "\nendstream";
}

QByteArray contentOf(const Paper &paper, int page)
{
    QByteArray content = "BT /F1 12 Tf 72 720 Td 18 TL\n";
    for (const QString &line : PaperLines(paper, page))
        content += stringOf(line) + " Tj T*\n";
    return content + "ET";
}

/// Writes objects, and keeps in mind where they begin.
class PdfWriter
{
public:
    void Add(int object, const QByteArray &body)
    {
        Begin(object);
        bytes += body;
        End();
    }
    void Begin(int object)
    {
        offsets.push_back(skipped + bytes.size());
        bytes += number(object) + " 0 obj\n";
    }
    void End() { bytes += "\nendobj\n"; }

    /// The table of where the objects begin, which ends the file.
    void Finish()
    {
        const qint64 table = skipped + bytes.size();
        const auto count = static_cast<qint64>(offsets.size()) + 1;
        bytes += "xref\n0 " + number(count) + "\n0000000000 65535 f \n";
        for (const qint64 offset : offsets)
            bytes += number(offset).rightJustified(10, '0') + " 00000 n \n";
        bytes += "trailer\n<< /Size " + number(count) + " /Root " + reference(catalogue)
                 + " >>\nstartxref\n" + number(table) + "\n%%EOF\n";
    }

    /// What has been written so far; so many bytes come behind it before the next.
    QByteArray Take(qint64 behind)
    {
        skipped += bytes.size() + behind;
        return std::exchange(bytes, {});
    }
    qint64 Size() const { return skipped + bytes.size(); }

private:
    QByteArray bytes;
    qint64 skipped = 0;
    std::vector<qint64> offsets;
};

QByteArray treeOf(const Paper &paper)
{
    QByteArray pages;
    for (int page = 1; page <= paper.pages; ++page)
        pages += reference(pageObject(page)) + ' ';
    return "<< /Type /Pages /Count " + number(paper.pages) + " /Kids [ " + pages + "] >>";
}

void addPages(const Paper &paper, PdfWriter &writer)
{
    for (int page = 1; page <= paper.pages; ++page) {
        const int object = pageObject(page);
        writer.Add(object, "<< /Type /Page /Parent " + reference(pageTree)
                               + " /MediaBox [0 0 612 792] /Resources << /Font << /F1 "
                               + reference(font) + " >> >> /Contents " + reference(object + 1)
                               + " >>");
        writer.Add(object + 1, streamOf(contentOf(paper, page)));
    }
}
} // namespace

DocumentBytes PdfBytes(const Paper &paper, qint64 least)
{
    PdfWriter writer;
    DocumentBytes document;
    document.start = "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n";
    writer.Take(document.start.size());
    writer.Add(catalogue, "<< /Type /Catalog /Pages " + reference(pageTree) + " >>");
    writer.Add(pageTree, treeOf(paper));
    writer.Add(font, "<< /Type /Font /Subtype /Type1 /BaseFont /Courier >>");
    addPages(paper, writer);
    if (writer.Size() < least) {
        document.filling = least - writer.Size();
        writer.Begin(pageObject(paper.pages + 1));
        QByteArray head = "<< /Length " + number(document.filling) + " >>\nstream\n";
        document.start += writer.Take(head.size() + document.filling) + head;
        document.end = "\nendstream";
        writer.Take(document.end.size());
        writer.End();
    }
    writer.Finish();
    (document.filling > 0 ? document.end : document.start) += writer.Take(0);
    return document;
}
} // namespace Practice
