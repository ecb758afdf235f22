#include "prefs/frmOpts.h"

#include "controls/ModalDialog.h"
#include "controls/MsgBox.h"
#include "controls/SaveDialog.h"
#include "controls/ScreenFit.h"
#include "ui_frmOpts.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QScrollArea>
#include <QStyle>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
/// The radio buttons of the default jurisdiction; there is none with the index 3.
struct StateButton
{
    int Index;
    QStringView State;
};
constexpr std::array<StateButton, 4> stateButtons{
    {{0, u"OR"}, {1, u"WA"}, {2, u"FED"}, {4, u"ID"}}};

constexpr QStringView noFolderTitle = u"Report Folder Not Selected..";

/// The control of a row: the table names it, and the window has it.
template<typename Control>
Control *controlOf(const QWidget *window, const QString &name)
{
    auto *control = window->findChild<Control *>(name);
    Q_ASSERT_X(control, "frmOpts", "a control of the table is not in the window");
    return control;
}

template<typename Control>
Control *controlOf(const QWidget *window, const OptionRow &row)
{
    return controlOf<Control>(window, row.Control.toString());
}

QRadioButton *buttonOf(const QWidget *window, const OptionRow &row, int index)
{
    return controlOf<QRadioButton>(window, row.Control.toString() + u'_' + QString::number(index));
}

/// Chooses a text of a list; one that is set in the file and not offered joins the list.
void choose(QComboBox *list, const QString &text)
{
    if (list->findText(text) < 0)
        list->addItem(text);
    list->setCurrentText(text);
}

bool isTab(const OptionRow &row)
{
    return row.Group != OptionGroup::None;
}
} // namespace

OptionsEvents &OptionsEvents::Of()
{
    static OptionsEvents events;
    return events;
}

frmOpts::frmOpts(QWidget *parent, const OptionValues &values)
    : QDialog(parent), ui(std::make_unique<Ui::frmOpts>()), loaded(values), chosenTabs(values)
{
    ui->setupUi(this);
    constexpr int shortestOffered = 2;
    constexpr int longestOffered = 30;
    for (int minutes = shortestOffered; minutes <= longestOffered; ++minutes)
        ui->cboxInactiveMins->addItem(QString::number(minutes));
    ui->cboxHvServerIPs->addItems(values.Servers);
    showValues(values);
    connectControls();
    // A practice session brings its server along; the file's own would not be in force.
    if (IsHeld(Setting::ServerIP1)) {
        ui->frameServer->setTitle(u"Server of This Practice Session"_s);
        ui->frameServer->setEnabled(false);
    }
    ensurePolished();
    const QSize whole = wholeSize();
    FitOnScreen(this, whole);
    // On a low screen the bar that scrolls a page stands beside it, not over it.
    if (height() < whole.height())
        FitOnScreen(this, whole + QSize(style()->pixelMetric(QStyle::PM_ScrollBarExtent), 0));
    ui->SSTab1->setCurrentIndex(0);
    ui->SSTab1->setFocus();
}

frmOpts::~frmOpts() = default;

void frmOpts::ShowModal(QWidget *parent)
{
    const QPointer<QWidget> watched(parent);
    if (LoadOpts().ServersMissing)
        MsgBox(parent,
               u"An IP Address for the Halvane Server was not found in the Options.Ini "
               "configuration file. Please contact Halvane to Correct this."_s,
               u"Error Reading Configuration File .."_s, MsgButtons::Ok, MsgIcon::Exclamation);
    // The program may have ended under the box, or the file been mended.
    if (!parent || watched)
        ModalDialog<frmOpts>(parent, LoadOpts()).Run();
}

/// The size at which no page has to scroll. What the layouts want by themselves leaves pages out of
/// sight, since these can scroll.
QSize frmOpts::wholeSize() const
{
    QSize pages;
    QSize scrolling;
    const QList<QScrollArea *> areas = ui->SSTab1->findChildren<QScrollArea *>();
    for (const QScrollArea *area : areas) {
        scrolling = scrolling.expandedTo(area->sizeHint());
        pages = pages.expandedTo(area->widget()->sizeHint());
    }
    for (const QScrollArea *area : areas) {
        const int height = area->widget()->heightForWidth(pages.width());
        pages.setHeight(std::max(pages.height(), height));
    }
    return sizeHint() - scrolling + pages.expandedTo(scrolling);
}

void frmOpts::connectControls()
{
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmOpts::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->chkPrintoutName, &QCheckBox::toggled, ui->txtPrintName, &QWidget::setEnabled);
    connect(ui->cboxInactiveMins, &QComboBox::currentTextChanged, this, &frmOpts::showIdleMinutes);
    connect(ui->cboxHvServerIPs, &QComboBox::textActivated, this, &frmOpts::cboxHvServerIPs_Click);
    connect(ui->cmdChangeRptFolder, &QPushButton::clicked, this,
            &frmOpts::cmdChangeRptFolder_Click);
    connect(ui->cmdClearHistory, &QPushButton::clicked, this, &frmOpts::cmdClearHistory_Click);
    connect(ui->Command1, &QPushButton::clicked, this,
            [this] { ui->Text1->setText(StandardReportFolder()); });
    connect(ui->cmdSetDefaultTabs, &QPushButton::clicked, this,
            [this] { restoreDefaults({OptionGroup::Superior}); });
    connect(ui->cmdRestDefaultTabsNCCV, &QPushButton::clicked, this, [this] {
        restoreDefaults({OptionGroup::Civil, OptionGroup::NonCivil});
    });
    connect(ui->cmdResetOrDefaults, &QPushButton::clicked, this,
            [this] { restoreDefaults({OptionGroup::Oregon}); });
    connect(ui->cmdIdRestoreDefaultOpt, &QPushButton::clicked, this,
            [this] { restoreDefaults({OptionGroup::Idaho}); });
    connect(ui->chkCaseDefault, &QCheckBox::clicked, this, &frmOpts::chkCaseDefault_Click);
    for (const OptionRow &row : OptionRows()) {
        if (isTab(row))
            connect(controlOf<QCheckBox>(this, row), &QCheckBox::toggled, this,
                    &frmOpts::tabsChanged);
    }
}

void frmOpts::showValues(const OptionValues &values)
{
    for (const OptionRow &row : OptionRows())
        showRow(row, values[row.Control]);
    ui->txtPrintName->setEnabled(ui->chkPrintoutName->isChecked());
    showIdleMinutes();
    tabsChanged();
}

void frmOpts::showRow(const OptionRow &row, const QString &text)
{
    switch (row.Kind) {
    case OptionKind::Check:
        controlOf<QCheckBox>(this, row)->setChecked(text == u"1");
        break;
    case OptionKind::List:
        choose(controlOf<QComboBox>(this, row), text);
        break;
    case OptionKind::Buttons:
        for (const StateButton &button : stateButtons)
            buttonOf(this, row, button.Index)->setChecked(button.State == text);
        break;
    case OptionKind::Text:
    case OptionKind::Folder:
        controlOf<QLineEdit>(this, row)->setText(text);
        break;
    case OptionKind::Label:
        controlOf<QLabel>(this, row)->setText(text == OptionDefault(row) ? u"(not set)"_s : text);
        break;
    }
}

QString frmOpts::textOf(const OptionRow &row) const
{
    switch (row.Kind) {
    case OptionKind::Check:
        return controlOf<QCheckBox>(this, row)->isChecked() ? u"1"_s : u"0"_s;
    case OptionKind::List:
        return controlOf<QComboBox>(this, row)->currentText();
    case OptionKind::Text:
    case OptionKind::Folder:
        return controlOf<QLineEdit>(this, row)->text();
    case OptionKind::Buttons:
        for (const StateButton &button : stateButtons) {
            if (buttonOf(this, row, button.Index)->isChecked())
                return button.State.toString();
        }
        break;
    case OptionKind::Label:
        break;
    }
    return loaded[row.Control];
}

OptionValues frmOpts::Values() const
{
    OptionValues values = loaded;
    for (const OptionRow &row : OptionRows())
        values[row.Control] = textOf(row);
    return values;
}

void frmOpts::cmdOK_Click()
{
    if (!mayKeepPort() || !mayKeepPhrase())
        return;
    const bool saved = SaveOpts(loaded, Values());
    Q_EMIT OptionsEvents::Of().Saved();
    const QPointer<frmOpts> self(this);
    if (!saved)
        MsgBox(this,
               u"The options could not be written to options.ini, and are not kept. Some of them "
               "are in use until you leave Halvane."_s,
               u"Halvane Options/Preferences"_s, MsgButtons::Ok, MsgIcon::Exclamation);
    if (self)
        accept();
}

bool frmOpts::mayKeepPort()
{
    if (PortOf(ui->txtPort->text()))
        return true;
    const QPointer<frmOpts> self(this);
    MsgBox(this,
           u"Invalid Port Selection - Port changed to Default Setting! Check setting before "
           "continuing.."_s,
           u"Halvane - Invalid Port Selection"_s, MsgButtons::Ok, MsgIcon::Critical);
    if (self) {
        ui->txtPort->setText(OptionDefault(OptionRowOf(u"txtPort")));
        showAt(ui->txtPort);
    }
    return false;
}

/// A phrase that would read otherwise at the next start is the user's to change.
bool frmOpts::mayKeepPhrase()
{
    const QString reason = WhyNotKept(ui->txtPrintName->text().trimmed());
    // What came from the file reads as it did.
    if (reason.isEmpty() || ui->txtPrintName->text() == loaded[u"txtPrintName"])
        return true;
    const QPointer<frmOpts> self(this);
    MsgBox(this, u"The name or phrase cannot be kept. "_s + reason + u" Please change it."_s,
           u"Halvane Options/Preferences"_s, MsgButtons::Ok, MsgIcon::Exclamation);
    if (self)
        showAt(ui->chkPrintoutName->isChecked() ? static_cast<QWidget *>(ui->txtPrintName)
                                                : ui->chkPrintoutName);
    return false;
}

void frmOpts::cboxHvServerIPs_Click(const QString &address)
{
    SaveSetting(Setting::DefaultIP, SettingWriter::ChoiceOfAddress, address);
}

void frmOpts::cmdChangeRptFolder_Click()
{
    AskForFolder(this, u"Select Directory"_s, QDir::fromNativeSeparators(ui->Text1->text()), this,
                 [this](const QString &folder) { takeFolder(folder); });
}

/// The field keeps what it has unless the folder is one in which reports can lie.
void frmOpts::takeFolder(const QString &folder)
{
    const QString written = QDir::toNativeSeparators(folder);
    const QString reason = WhyNotKept(written);
    if (folder.isEmpty())
        MsgBox(this, u"No Report Folder was Selected. No change was made."_s,
               noFolderTitle.toString());
    else if (!QFileInfo(folder).isDir())
        MsgBox(this, u"Invalid Folder Selection. Restoring to default setting."_s, {},
               MsgButtons::Ok, MsgIcon::Exclamation);
    else if (!reason.isEmpty())
        MsgBox(this,
               u"The name of this folder cannot be kept. "_s + reason
                   + u" Please choose a folder with another name. No change was made."_s,
               noFolderTitle.toString(), MsgButtons::Ok, MsgIcon::Exclamation);
    else
        ui->Text1->setText(written);
}

/// Whatever button the options are left with: what is forgotten does not come back.
void frmOpts::cmdClearHistory_Click()
{
    const MsgAnswer answer =
        MsgBox(this,
               u"Forget all searches, cases and documents of the history, and the usage by client "
               "code? This cannot be undone."_s,
               u"Clear the History"_s, MsgButtons::YesNo, MsgIcon::Question);
    if (answer == MsgAnswer::Yes)
        Q_EMIT OptionsEvents::Of().ClearHistoryWanted();
}

void frmOpts::showIdleMinutes()
{
    const int minutes = IdleMinutes(ui->cboxInactiveMins->currentText());
    ui->lblIdleMinutes->setText(u"The end of the session is announced after "_s
                                + QString::number(minutes) + u" minutes without use."_s);
}

void frmOpts::restoreDefaults(std::initializer_list<OptionGroup> groups)
{
    if (!ui->chkCaseDefault->isChecked())
        chosenTabs = Values();
    for (const OptionRow &row : OptionRows()) {
        if (std::find(groups.begin(), groups.end(), row.Group) != groups.end())
            showRow(row, OptionDefault(row));
    }
}

/// Ticked, all tabs are as they are by default; without the tick they are what they were before.
void frmOpts::chkCaseDefault_Click(bool wanted)
{
    if (wanted)
        chosenTabs = Values();
    const OptionValues before = chosenTabs;
    for (const OptionRow &row : OptionRows()) {
        if (isTab(row))
            showRow(row, wanted ? OptionDefault(row) : before[row.Control]);
    }
    tabsChanged();
}

void frmOpts::tabsChanged()
{
    ui->chkCaseDefault->setChecked(everyTabIsAsByDefault());
}

bool frmOpts::everyTabIsAsByDefault() const
{
    const std::span<const OptionRow> rows = OptionRows();
    return std::all_of(rows.begin(), rows.end(), [this](const OptionRow &row) {
        return !isTab(row) || textOf(row) == OptionDefault(row);
    });
}

/// Brings the page of a control to the front and the keyboard to it.
void frmOpts::showAt(QWidget *control)
{
    for (int page = 0; page < ui->SSTab1->count(); ++page) {
        if (ui->SSTab1->widget(page)->isAncestorOf(control))
            ui->SSTab1->setCurrentIndex(page);
    }
    control->setFocus();
    if (auto *field = qobject_cast<QLineEdit *>(control))
        field->selectAll();
}
