#pragma once

#include <QString>
#include <QStringList>

// A request is one line of fields, each closed by the delimiter of its court, the last one too.
// What stands in which field is a table of whoever asks; the line itself is made here and nowhere
// else, so that no field can break it: a frame has no escape.

/// The delimiter of most lines. The index and the bankruptcy courts have "~", a case of Oregon "@".
constexpr char16_t fieldBar = u'\u00A6';

/// What a text leaves in a line of this delimiter: without the delimiter, the broken bar, "|" and
/// line ends.
QString FieldText(QString text, char16_t delimiter);

/// The line of these fields, each as FieldText leaves it and with the delimiter behind it.
QString ComposeLine(char16_t delimiter, const QStringList &fields);

/// The line with an answer to the court's question in its last field: all but its last two
/// characters, the answer, and two broken bars.
QString WithAnswer(const QString &line, const QString &answer);

/// The tag by which a request line carries a client accounting code: "^^CAC:", the trimmed code,
/// "^^". An empty code gives the tag with nothing in it.
QString FormatClientCode(const QString &code);

/// The trimmed line with the tag in front of its last character, which is its closing delimiter. A
/// line of only blanks comes back as it is.
QString EmbedClientCode(const QString &line, const QString &code);
