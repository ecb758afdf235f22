#include "reports/ShowSessionReport.h"

#include "core/Clock.h"
#include "core/GeneralDate.h"
#include "reports/PreviewDoc.h"
#include "reports/SessionReport.h"
#include "session/SessionState.h"

void ShowSessionReport(QWidget *window)
{
    PreviewDoc::Of(window)->ShowReport(SessionReport(Session.strUserName, Session.strSessionTime,
                                                     GeneralDate(Clock::Current().Now())));
}
