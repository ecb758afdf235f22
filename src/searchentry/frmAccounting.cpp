#include "searchentry/frmAccounting.h"

#include "controls/ModalDialog.h"
#include "controls/MsgBox.h"
#include "controls/SearchTextBox.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/Settings.h"
#include "core/TextUtilities.h"
#include "core/Windows1252.h"
#include "searchentry/FieldRules.h"
#include "searchentry/RecentEntries.h"
#include "ui_frmAccounting.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace {
// A code travels in every line of a search, and a line must still divide where it did: "~" and "@"
// delimit lines of some courts, and "^" the code itself.
constexpr QStringView reservedInCode = u"~@^";

/// A list that cannot be written is no reason to stop a search.
void remember(const QString &code)
{
    try {
        AddAcctgToMru(code);
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"Error writing the list of client codes: "_s + error.Description());
    }
}
} // namespace

AccountingEvents &AccountingEvents::Of()
{
    static AccountingEvents events;
    return events;
}

frmAccounting::frmAccounting(QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmAccounting>()), inSession(Global.bLoggedIn)
{
    ui->setupUi(this);
    auto *entry = new SearchTextBox(ui->cboxClientID);
    entry->SetReserved(reservedInCode.toString());
    entry->setAccessibleName(ui->cboxClientID->accessibleName());
    ui->cboxClientID->setLineEdit(entry);
    // A code completed behind the user's back would bill the wrong client.
    ui->cboxClientID->setCompleter(nullptr);
    ui->cboxClientID->addItems(LoadAcctgMru());
    ui->cboxClientID->setCurrentIndex(-1);
    entry->setText(Global.ClientAcctgCode);
    entry->selectAll();
    ui->cboxClientID->setFocus();
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmAccounting::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmAccounting::reject);
}

frmAccounting::~frmAccounting() = default;

void frmAccounting::ShowModal(QWidget *parent)
{
    ModalDialog<frmAccounting>(parent).Run();
}

void frmAccounting::cmdOK_Click()
{
    const QString code =
        TrimBlanks(ui->cboxClientID->currentText().normalized(QString::NormalizationForm_C));
    const bool wanted = !ui->chkDontShowAgain->isChecked();
    if (wanted && !MaySend(code))
        return;
    SaveSetting(Setting::EnableAcctg, SettingWriter::Accounting, wanted ? u"1"_s : u"0"_s);
    Global.bEnableAcctg = wanted;
    Q_EMIT AccountingEvents::Of().OptionChanged(wanted);
    // A session that ended meanwhile took its code along: the next one is not billed to it.
    const bool sessionEnded = inSession && !Global.bLoggedIn;
    Global.ClientAcctgCode = wanted && !sessionEnded ? code : QString();
    if (wanted)
        remember(code);
    // Only now: the option is as the user set it even when the code is still owed.
    if (Global.bClientAcctgOpt && code.isEmpty())
        TellCodeIsRequired();
    else
        accept();
}

/// Whether the code may go out: one that reads otherwise on the invoice than it was typed is the
/// user's to decide.
bool frmAccounting::MaySend(const QString &code)
{
    const QStringList lost = CharactersOutsideWindows1252(code);
    if (lost.isEmpty())
        return true;
    const QPointer<frmAccounting> self(this);
    const MsgAnswer answer =
        MsgBox(this,
               LostCharactersText(lost)
                   + u"\r\n\r\nTo use the code all the same click OK. To change it click Cancel."_s,
               u"Halvane Form Field Validation"_s, MsgButtons::OkCancel, MsgIcon::Exclamation);
    if (self && answer != MsgAnswer::Ok)
        ui->cboxClientID->setFocus();
    return self && answer == MsgAnswer::Ok;
}

bool frmAccounting::QueryUnload()
{
    // The code in force is looked at, not the entry: what was typed and then cancelled would not go
    // with the search.
    if (!Global.bClientAcctgOpt || !TrimBlanks(Global.ClientAcctgCode).isEmpty())
        return true;
    TellCodeIsRequired();
    return false;
}

void frmAccounting::reject()
{
    if (QueryUnload())
        QDialog::reject();
}

void frmAccounting::TellCodeIsRequired()
{
    const QPointer<frmAccounting> self(this);
    MsgBox(this,
           u"You are required to enter a client accounting code. This code appears on the invoice "
           "each month."_s,
           u"Halvane - Required Field is Empty"_s, MsgButtons::Ok, MsgIcon::Exclamation);
    if (self)
        ui->cboxClientID->setFocus();
}
