#include "support/Places.h"

using namespace Qt::StringLiterals;

QString DataPath(const QString &name)
{
    const QString folder = QStringLiteral(HALVANE_DATA_DIR);
    return name.isEmpty() ? folder : folder + u'/' + name;
}

QString DocsPath(const QString &name)
{
    return QStringLiteral(HALVANE_DOCS_DIR) + u'/' + name;
}

QString ProgramPath(const QString &name)
{
    return QStringLiteral(HALVANE_BIN_DIR) + u'/' + name;
}
