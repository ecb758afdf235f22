#include "namesearch/Handed.h"

#include "casedetails/DiscisCaseWindow.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmDiscisNCNameResults.h"
#include "namesearch/frmDiscisNameResults.h"
#include "namesearch/frmNameSearchResults.h"

#include <QWidget>

namespace {
/// Collects what holds something.
class Fields
{
public:
    explicit Fields(const QWidget *form) : window(form)
    {
        handed.append(window->objectName());
        Text(u"caption"_s, window->windowTitle());
    }

    void Text(const QString &name, const QString &text)
    {
        if (!text.isEmpty())
            handed.append(name + u' ' + text);
    }
    void Flag(const QString &name, bool flag)
    {
        if (flag)
            handed.append(name);
    }
    void Lines(const QString &name, const ListBox &list)
    {
        const QStringList &lines = list.Lines();
        for (const QString &line : lines)
            Text(name, line);
    }
    /// A control that this window has.
    void Shown(const char *name)
    {
        if (window->findChild<QWidget *>(QLatin1StringView(name)))
            Text(QString::fromLatin1(name), TextOf(window, name));
    }

    QStringList handed;

private:
    const QWidget *window;
};

void addResults(const NameResultsWindow *window, Fields &fields)
{
    for (const char *name : {"lblNameVal", "lblCaseTypeVals"})
        fields.Shown(name);
    fields.Text(u"txtCountyList"_s, window->txtCountyList());
    fields.Text(u"lbl911"_s, window->lbl911);
    if (const auto *names = qobject_cast<const frmNameSearchResults *>(window)) {
        fields.Shown("lblName");
        fields.Flag(u"chkIndexSearch"_s, names->chkIndexSearch);
        fields.Flag(u"chkBK"_s, names->chkBK);
        fields.Flag(u"OrStatewide"_s, names->OrStatewide);
        fields.Flag(u"IdStatewide"_s, names->IdStatewide);
        fields.Flag(u"ORchkboxJGMcasetype"_s, names->ORchkboxJGMcasetype);
    } else {
        fields.Shown("lblCourtCounty");
    }
    if (const auto *nonCivil = qobject_cast<const frmDiscisNCNameResults *>(window))
        fields.Text(u"lblDNDorSNCI"_s, nonCivil->lblDNDorSNCI);
    fields.Lines(u"line"_s, window->lboxQueue);
}

void addCase(const CaseWindow *window, Fields &fields)
{
    fields.Text(u"lblCaseDetailsHdr"_s, window->lblCaseDetailsHdr());
    fields.Text(u"txtCountyName"_s, window->txtCountyName);
    fields.Text(u"lblCourtName"_s, window->lblCourtName());
    fields.Text(u"lblOrCourtType"_s, window->lblOrCourtType);
    fields.Text(u"txtCaseNumber"_s, window->txtCaseNumber);
    fields.Text(u"txtCourtCode"_s, window->txtCourtCode);
    fields.Text(u"txtCaseType"_s, window->txtCaseType);
    if (const auto *discis = qobject_cast<const DiscisCaseWindow *>(window)) {
        fields.Text(u"lblCaseType"_s, discis->lblCaseType());
        fields.Text(u"lblCaseNo"_s, discis->lblCaseNo());
    }
    for (const char *name : {"lblCaseTitle", "lblDateFiled", "lblTopFrameCaseType"})
        fields.Shown(name);
    fields.Flag(u"chkBK"_s, window->chkBK);
    fields.Flag(u"chkAutoPrint"_s, window->chkAutoPrint);
    fields.Text(u"tboxCaseNumberQueue"_s, window->tboxCaseNumberQueue);
    fields.Lines(u"lboxTabReqQueue"_s, window->lboxTabReqQueue);
}
} // namespace

QStringList Handed(const JobWindow *window)
{
    if (!window)
        return {u"no window"_s};
    Fields fields(window);
    fields.Text(u"lblState"_s, window->lblState);
    fields.Text(u"ClientAcctgCode"_s, window->ClientAcctgCode);
    if (const auto *results = qobject_cast<const NameResultsWindow *>(window))
        addResults(results, fields);
    else if (const auto *details = qobject_cast<const CaseWindow *>(window))
        addCase(details, fields);
    return fields.handed;
}
