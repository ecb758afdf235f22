#include "searchentry/SearchTemplates.h"

#include "core/CSetting.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype mostTemplates = 25;
constexpr char16_t firstLetter = u'a';
constexpr char16_t lastLetter = u'z';

constexpr QStringView noTemplate = u"0";

QList<SearchTemplate> &templates()
{
    static QList<SearchTemplate> list;
    return list;
}
} // namespace

int LoadTemplates()
{
    templates().clear();
    CSetting setting;
    setting.Init(u"templates.ini"_s, true);
    for (char16_t letter = firstLetter; letter <= lastLetter; ++letter) {
        if (templates().size() == mostTemplates)
            break;
        const QString name =
            setting.GetSettingStr(u"WaSup"_s, QString(letter), noTemplate.toString());
        if (name.isEmpty() || name == noTemplate)
            continue;
        templates().append({name, setting.GetSettingStr(name, u"Juris"_s, {}),
                            setting.GetSettingStr(name, u"Cases"_s, {})});
    }
    return static_cast<int>(templates().size());
}

const QList<SearchTemplate> &SearchTemplates()
{
    return templates();
}

const SearchTemplate *SearchTemplateByName(const QString &name)
{
    const auto found =
        std::find_if(templates().cbegin(), templates().cend(),
                     [&](const SearchTemplate &candidate) { return candidate.Name == name; });
    return found == templates().cend() ? nullptr : &*found;
}

QString GetDelimitedField(const QString &text, const QString &delimiter, int n)
{
    if (n < 1 || delimiter.isEmpty() || !text.contains(delimiter))
        return {};
    return text.split(delimiter).value(n - 1);
}

QList<int> RowsOfTemplate(const QString &list, const QStringList &items)
{
    const QString comma = u","_s;
    // With a comma of its own behind it, a list of one name has a first field like any other.
    const QString closed = list + comma;
    QStringList names;
    for (int n = 1; n <= closed.count(comma); ++n)
        names.append(GetDelimitedField(closed, comma, n).trimmed());
    names.removeAll(QString());
    QList<int> rows;
    for (int row = 0; row < static_cast<int>(items.size()); ++row) {
        if (names.contains(items[row].trimmed(), Qt::CaseInsensitive))
            rows.append(row);
    }
    return rows;
}
