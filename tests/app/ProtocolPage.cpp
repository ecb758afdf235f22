#include "app/ProtocolPage.h"

#include "support/Places.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
QString withoutBars(QString text)
{
    if (text.startsWith(u'|'))
        text.remove(0, 1);
    if (text.endsWith(u'|'))
        text.chop(1);
    return text;
}

/// Whether a text is a request and more than its keyword.
bool isRequest(const QString &text)
{
    static const QRegularExpression keyword(
        u"^¦?(LOGON|GETINIVAL|GETMSG|GET_PRIV_MSG|COURT_STATUS|GETCLIENTACCTGOPT|WASUPDOC|"
        u"WASUP"
        "|OREGON|IDSUP|WADISCIS|INDEX|BKRPT|STOP|IMALIVE)[A-Z_]*([¦~@]|$)"_s);
    static const QStringList families{u"INDEX~"_s, u"BKRPT~"_s, u"OREGON@"_s};
    static const QRegularExpression delimiter(u"[¦~@]"_s);
    return text.contains(keyword) && text.contains(delimiter) && !families.contains(text);
}
} // namespace

ProtocolPage::ProtocolPage()
{
    QFile file(DocsPath(u"protocol.md"_s));
    if (file.open(QIODevice::ReadOnly))
        lines = QString::fromUtf8(file.readAll()).split(u'\n');
}

QString ProtocolPage::CodeIn(const QString &cell)
{
    return withoutBars(cell.section(u'`', 1, 1));
}

QList<QStringList> ProtocolPage::TableBelow(const QString &titles) const
{
    QList<QStringList> rows;
    // Two lines down: the titles are underlined.
    for (qsizetype i = lines.indexOf(titles) + 2; i > 1 && lines.value(i).startsWith(u'|'); ++i) {
        QStringList cells = lines[i].split(u'|').mid(1);
        cells.removeLast();
        for (QString &cell : cells)
            cell = cell.trimmed();
        rows.append(cells);
    }
    return rows;
}

QList<std::pair<QString, QString>> ProtocolPage::Examples() const
{
    QList<std::pair<QString, QString>> examples;
    for (const QStringList &cells : TableBelow(u"| Request | Sent for |"_s))
        examples.append({CodeIn(cells.value(0)), cells.value(1)});
    return examples;
}

QStringList ProtocolPage::Requests() const
{
    static const QRegularExpression code(u"`([^`]+)`"_s);
    static const QRegularExpression frame(u"\\|([^|]+)\\|"_s);
    QStringList found;
    bool server = false;
    for (const QString &line : lines) {
        const bool block = line.startsWith(u"    ");
        const QString text = line.trimmed();
        // Who speaks goes on until somebody else does, or the block ends.
        if (!block || text.startsWith(u"C: "))
            server = false;
        else if (text.startsWith(u"S: "))
            server = true;
        if (server)
            continue;
        for (const QRegularExpressionMatch &match : (block ? frame : code).globalMatch(line)) {
            const QString request = withoutBars(match.captured(1));
            if (isRequest(request))
                found.append(request);
        }
    }
    return found;
}
