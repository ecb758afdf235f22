#include "tables/CsvText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView formulaSigns = u"=+-@";
constexpr QStringView refusedInNames = u"<>:\"/\\|?*";
constexpr qsizetype longestFormulaText = 255; // spreadsheets refuse a longer text in a formula
constexpr qsizetype longestFileName = 100;

// Asked of each character of millions of cells, so without a call.
bool breaksLine(QChar c)
{
    return (c >= u'\t' && c <= u'\r') || c == QChar::LineSeparator
           || c == QChar::ParagraphSeparator;
}

bool needsQuotes(QChar c)
{
    return c == u',' || c == u'"' || c == u'\r' || c == u'\n';
}

bool isPlainNumber(QStringView text)
{
    if (!text.isEmpty() && (text.front() == u'-' || text.front() == u'+'))
        text = text.mid(1);
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    return std::any_of(text.begin(), text.end(), isDigit)
           && std::all_of(text.begin(), text.end(),
                          [&](QChar c) { return isDigit(c) || c == u'.' || c == u','; });
}

/// One line of it: what would begin a new cell or a new row becomes a blank.
QString onOneLine(QString text)
{
    // Hardly any has such a character, and a copy of each of millions takes its time.
    if (std::none_of(text.cbegin(), text.cend(),
                     [](QChar c) { return c.isNull() || breaksLine(c); }))
        return text;
    text.remove(QChar::Null);
    for (QChar &c : text) {
        if (breaksLine(c))
            c = u' ';
    }
    return text;
}

void appendCsvLine(QString &csv, const QStringList &cells)
{
    csv += cells.join(u',') + u"\r\n"_s;
}
} // namespace

QString HarmlessCell(const QString &text)
{
    const QStringView content = QStringView(text).trimmed();
    if (content.isEmpty() || !formulaSigns.contains(content.front()) || isPlainNumber(content))
        return text;
    return u'\'' + text;
}

bool HoldsCaseNumbers(const QString &header)
{
    return header.startsWith(u"Case N", Qt::CaseInsensitive);
}

QString CaseNumberCell(const QString &text)
{
    if (text.isEmpty())
        return text;
    const QString line = onOneLine(text);
    if (line.size() > longestFormulaText)
        return HarmlessCell(line);
    // The one formula that is wanted: a text. Quotes in it are doubled, so nothing gets out of it.
    return u"=\""_s + QString(line).replace(u'"', u"\"\""_s) + u'"';
}

QString CsvCell(const QString &text)
{
    const bool quoted = std::any_of(text.begin(), text.end(), &needsQuotes)
                        || (!text.isEmpty() && (text.front().isSpace() || text.back().isSpace()));
    return quoted ? QString(u'"' + QString(text).replace(u'"', u"\"\""_s) + u'"') : text;
}

QByteArray CsvText(const ShownTable &table)
{
    QString csv(QChar::ByteOrderMark);
    QStringList cells;
    QList<bool> caseNumbers;
    for (const QString &header : table.Headers) {
        cells.append(CsvCell(HarmlessCell(header)));
        caseNumbers.append(HoldsCaseNumbers(header));
    }
    if (!cells.isEmpty())
        appendCsvLine(csv, cells);
    for (const QStringList &row : table.Rows) {
        cells.clear();
        for (qsizetype i = 0; i < row.size(); ++i) {
            QString cell = row[i];
            cell.remove(QChar::Null);
            cells.append(CsvCell(caseNumbers.value(i) ? CaseNumberCell(cell) : HarmlessCell(cell)));
        }
        appendCsvLine(csv, cells);
    }
    return csv.toUtf8();
}

QString ClipboardText(const ShownTable &table, bool withHeaders)
{
    QStringList lines;
    const auto append = [&lines](const QStringList &row) {
        QStringList cells;
        for (const QString &cell : row)
            cells.append(HarmlessCell(onOneLine(cell)));
        lines.append(cells.join(u'\t'));
    };
    if (withHeaders && !table.Headers.isEmpty())
        append(table.Headers);
    for (const QStringList &row : table.Rows)
        append(row);
    return lines.join(u'\n');
}

QString FileNameOf(const QString &caption)
{
    QString name;
    for (const QChar c : caption) {
        if (c.isPrint() && !refusedInNames.contains(c))
            name += c;
    }
    name = name.simplified().left(longestFileName);
    // Points at either end hide a file on one system and are refused by another.
    while (name.startsWith(u'.') || name.startsWith(u' '))
        name.remove(0, 1);
    while (name.endsWith(u'.') || name.endsWith(u' '))
        name.chop(1);
    return name.isEmpty() ? u"List"_s : name;
}
