#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// A named set of counties and case types, kept in templates.ini and applied to the search form as
/// a whole.
struct SearchTemplate
{
    QString Name;
    QString Juris; ///< the counties, with commas between them
    QString Cases; ///< the case type words, with commas between them
};

/// Reads templates.ini and answers the number of templates, 25 at the most. The section WaSup names
/// them, under the letters a to z; a letter that is missing, empty or 0 names none. Without the
/// file there is none.
int LoadTemplates();

/// What LoadTemplates read, in the order of the letters.
const QList<SearchTemplate> &SearchTemplates();

/// The first template of this name, nullptr when there is none. Valid until the next load.
const SearchTemplate *SearchTemplateByName(const QString &name);

/// The nth field of a text, counted from 1, as it stands. Nothing when the text is empty or does
/// not hold the delimiter, and when there is no such field.
QString GetDelimitedField(const QString &text, const QString &delimiter, int n);

/// The rows of `items` that a list of a template names. Case and blanks around a name do not count;
/// a name that is not among the items is passed over.
QList<int> RowsOfTemplate(const QString &list, const QStringList &items);
