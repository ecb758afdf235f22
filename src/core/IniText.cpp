#include "core/IniText.h"

#include "core/Windows1252.h"

#include <QList>

namespace {
struct Line
{
    QByteArray text; ///< without its line end
    QByteArray end;  ///< "\r\n", "\n", "\r" or "" on the last line
};

QList<Line> splitLines(const QByteArray &text)
{
    QList<Line> lines;
    qsizetype start = 0;
    while (start < text.size()) {
        qsizetype end = start;
        while (end < text.size() && text[end] != '\n' && text[end] != '\r')
            ++end;
        qsizetype next = end;
        if (next < text.size())
            next += text.mid(end, 2) == "\r\n" ? 2 : 1;
        lines.append({text.mid(start, end - start), text.mid(end, next - end)});
        start = next;
    }
    return lines;
}

QByteArray joinLines(const QList<Line> &lines)
{
    QByteArray text;
    for (const Line &line : lines)
        text += line.text + line.end;
    return text;
}

/// The name in the brackets when the line opens a section.
std::optional<QString> sectionName(const QByteArray &line)
{
    const QByteArray trimmed = line.trimmed();
    if (!trimmed.startsWith('['))
        return std::nullopt;
    const qsizetype close = trimmed.indexOf(']');
    return FromWindows1252(trimmed.mid(1, close < 0 ? -1 : close - 1)).trimmed();
}

bool sameName(const QString &left, const QString &right)
{
    return left.compare(right.trimmed(), Qt::CaseInsensitive) == 0;
}

/// Where the value of a key line begins, or -1 when the line does not hold `key`.
qsizetype valueStart(const QByteArray &line, const QString &key)
{
    const qsizetype equals = line.indexOf('=');
    if (equals < 0 || line.trimmed().startsWith(';'))
        return -1;
    return sameName(FromWindows1252(line.left(equals)).trimmed(), key) ? equals + 1 : -1;
}

struct Place
{
    qsizetype sectionLine = -1;
    qsizetype keyLine = -1;
    qsizetype endOfSection = -1; ///< index behind the section's last line that is not empty
};

Place findPlace(const QList<Line> &lines, const QString &section, const QString &key)
{
    Place place;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (const auto name = sectionName(lines[i].text)) {
            if (place.sectionLine >= 0)
                break;
            if (sameName(*name, section)) {
                place.sectionLine = i;
                place.endOfSection = i + 1;
            }
            continue;
        }
        if (place.sectionLine < 0)
            continue;
        if (!lines[i].text.trimmed().isEmpty())
            place.endOfSection = i + 1;
        if (place.keyLine < 0 && valueStart(lines[i].text, key) >= 0)
            place.keyLine = i;
    }
    return place;
}

QByteArray oneLine(QString text)
{
    for (QChar &character : text) {
        if (character == u'\r' || character == u'\n' || character.isNull())
            character = u' ';
    }
    return ToWindows1252(text);
}

/// Whether what is written under these names is found under them again, and nothing else is taken
/// for a section or a comment.
bool canBeRead(const QString &section, const QString &key)
{
    const QByteArray line = oneLine(key).trimmed();
    return !line.startsWith('[') && !line.startsWith(';') && !line.contains('=')
           && !section.contains(u']');
}

QByteArray lineEndOf(const QList<Line> &lines)
{
    for (const Line &line : lines) {
        if (!line.end.isEmpty())
            return line.end;
    }
    return "\r\n";
}

QString unquoted(const QString &value)
{
    if (value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'')
        && value.back() == value.front())
        return value.mid(1, value.size() - 2);
    return value;
}
} // namespace

std::optional<QString> IniValue(const QByteArray &text, const QString &section, const QString &key)
{
    const QList<Line> lines = splitLines(text);
    const Place place = findPlace(lines, section, key);
    if (place.keyLine < 0)
        return std::nullopt;
    const QByteArray &line = lines[place.keyLine].text;
    return unquoted(FromWindows1252(line.mid(valueStart(line, key))).trimmed());
}

QByteArray IniTextWithValue(const QByteArray &text, const QString &section, const QString &key,
                            const QString &value)
{
    if (!canBeRead(section, key))
        return text;
    QList<Line> lines = splitLines(text);
    const QByteArray end = lineEndOf(lines);
    const Place place = findPlace(lines, section, key);
    if (place.keyLine >= 0) {
        QByteArray &line = lines[place.keyLine].text;
        line = line.left(valueStart(line, key)) + oneLine(value);
        return joinLines(lines);
    }
    const Line added{oneLine(key.trimmed()) + '=' + oneLine(value), end};
    if (!lines.isEmpty() && lines.last().end.isEmpty())
        lines.last().end = end;
    if (place.sectionLine >= 0) {
        lines.insert(place.endOfSection, added);
    } else {
        lines.append({'[' + oneLine(section.trimmed()) + ']', end});
        lines.append(added);
    }
    return joinLines(lines);
}

QByteArray IniTextWithoutKey(const QByteArray &text, const QString &section, const QString &key)
{
    QList<Line> lines = splitLines(text);
    const Place place = findPlace(lines, section, key);
    if (place.keyLine >= 0)
        lines.removeAt(place.keyLine);
    return joinLines(lines);
}

QByteArray IniTextWithoutSection(const QByteArray &text, const QString &section)
{
    const QList<Line> lines = splitLines(text);
    QList<Line> kept;
    bool inside = false;
    bool removed = false;
    for (const Line &line : lines) {
        if (const auto name = sectionName(line.text)) {
            inside = !removed && sameName(*name, section);
            removed = removed || inside;
        }
        if (!inside)
            kept.append(line);
    }
    return joinLines(kept);
}
