#include "link/RequestLine.h"

#include "core/TextUtilities.h"

using namespace Qt::StringLiterals;

QString FieldText(QString text, char16_t delimiter)
{
    text.removeIf([delimiter](QChar c) {
        return c == delimiter || c == fieldBar || c == u'|' || c == u'\r' || c == u'\n';
    });
    return text;
}

QString ComposeLine(char16_t delimiter, const QStringList &fields)
{
    QString line;
    for (const QString &field : fields)
        line += FieldText(field, delimiter) + QChar(delimiter);
    return line;
}

QString WithAnswer(const QString &line, const QString &answer)
{
    constexpr qsizetype tail = 2;
    return line.chopped(qMin(tail, line.size())) + answer + QChar(fieldBar) + QChar(fieldBar);
}

QString FormatClientCode(const QString &code)
{
    return u"^^CAC:"_s + TrimBlanks(code) + u"^^"_s;
}

QString EmbedClientCode(const QString &line, const QString &code)
{
    const QString trimmed = TrimBlanks(line);
    if (trimmed.isEmpty())
        return line;
    return trimmed.chopped(1) + FormatClientCode(code) + trimmed.back();
}
