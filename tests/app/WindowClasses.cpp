#include "app/WindowClasses.h"

#include "support/Places.h"

#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
/// Each class of the program that is made from another one, and that one.
QHash<QString, QString> readBases()
{
    static const QRegularExpression declared(uR"(^class (\w+)(?: final)? : public (\w+))"_s,
                                             QRegularExpression::MultilineOption);
    QHash<QString, QString> bases;
    QDirIterator headers(DataPath(u"../src"_s), {u"*.h"_s}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (headers.hasNext()) {
        QFile header(headers.next());
        if (!header.open(QIODevice::ReadOnly))
            continue;
        const QString text = QString::fromUtf8(header.readAll());
        auto found = declared.globalMatch(text);
        while (found.hasNext()) {
            const QRegularExpressionMatch one = found.next();
            bases.insert(one.captured(1), one.captured(2));
        }
    }
    return bases;
}
} // namespace

QStringList WindowClasses()
{
    const QStringList windows{u"QDialog"_s, u"QMainWindow"_s, u"FormWindow"_s};
    const QHash<QString, QString> bases = readBases();
    const QStringList madeFrom = bases.values();
    QStringList classes;
    for (auto one = bases.begin(); one != bases.end(); ++one) {
        if (madeFrom.contains(one.key()))
            continue;
        QString base = one.value();
        while (!windows.contains(base) && bases.contains(base))
            base = bases.value(base);
        if (windows.contains(base))
            classes.append(one.key());
    }
    classes.sort();
    return classes;
}
