#include "casedetails/CaseLines.h"

#include "core/CSetting.h"

void CaseLines::FetchAtOnce(const QString &section, const QStringList &captions)
{
    CSetting settings;
    settings.Init(u"options.ini"_s);
    for (int i = 0; i < caseTabCount; ++i) {
        const QString caption = CaseTabRowOf(static_cast<CaseTab>(i)).caption.toString();
        settings.SaveSettingStr(section, caption, captions.contains(caption) ? u"1"_s : u"0"_s);
    }
}

QStringList CaseLines::SuperiorSummary()
{
    return {u"Case Type:~1~"_s,
            u"Court:~King  Co Superior Ct~"_s,
            u"Title:~STATE OF WASHINGTON VS SMITH & SON~"_s,
            u"Date Filed:~03/04/2002~"_s,
            u"CAUSE:~Theft~"_s,
            u"Associated Case:~02-2-00456-7~"_s};
}

QStringList CaseLines::GridDef(const QStringList &rows)
{
    return QStringList{u"GRIDDEF~Date~Entry~20~80~"_s} + rows + QStringList{u"EOF~"_s};
}

QStringList CaseLines::TableForm(const QStringList &rows)
{
    return QStringList{u"TABNAME~Docket~"_s, u"TABDEF~Docket~"_s, u"COLDEF~Date~20~Entry~80~"_s,
                       u"COLALIGNMENT~L~"_s}
           + rows + QStringList{u"EOF~"_s};
}

QString SuperiorLine(const QString &word, const QString &number)
{
    return u"WASUP¦"_s + word + u'¦' + number + u"¦King¦¦"_s;
}
