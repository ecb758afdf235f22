#include "searchentry/RecentsOnForm.h"

#include "core/GlobalState.h"
#include "searchentry/FormStates.h"
#include "searchentry/SearchControls.h"

#include <QCompleter>

RecentsOnForm::RecentsOnForm(SearchControls &controls, const FormState &place)
    : ui(controls), state(place)
{
    for (QComboBox *box : {ui.cboxLastBizOrCase, ui.cboxCaseMRUs})
        connect(box, &QComboBox::activated, this,
                [this, box](int index) { use(box->itemText(index)); });
}

void RecentsOnForm::Load(const QString &searchType)
{
    Fill({searchType, LoadMruLists().Of(searchType)});
}

void RecentsOnForm::Fill(const ShownRecents &entries)
{
    recents = entries;
    QComboBox *box = recents.Type == u"Case Number" ? ui.cboxCaseMRUs : ui.cboxLastBizOrCase;
    box->clear();
    box->addItems(recents.Entries);
    box->setCurrentIndex(-1);
}

void RecentsOnForm::ShowOfType()
{
    // A tax identifier is remembered among the business names.
    const SearchKind kind = state.Kind == SearchKind::TaxId ? SearchKind::Business : state.Kind;
    Load(KindRowOf(kind).type.toString());
    Show();
}

void RecentsOnForm::Show()
{
    const FormParts parts = ViewOf(state);
    const bool numbers = parts.testFlag(FormPart::NumberRecents);
    const bool offered = Global.bEnableMRU && (numbers || parts.testFlag(FormPart::NameRecents));
    // One goes before the other comes: both together would make the window grow.
    QComboBox *shown = ui.cboxLastBizOrCase;
    QComboBox *other = ui.cboxCaseMRUs;
    if (numbers)
        std::swap(shown, other);
    other->hide();
    shown->setVisible(offered);
    ui.lblMruList->setVisible(offered);
    ui.lblMruList->setBuddy(shown);
    offerWhileTyping(offered ? recents.Entries : QStringList());
}

void RecentsOnForm::offerWhileTyping(const QStringList &entries)
{
    QLineEdit *first = ui.txtSearchName[0];
    // One box has one completer: the old one goes with its list.
    delete first->completer();
    if (entries.isEmpty())
        return;
    auto *completer = new QCompleter(entries, first);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    connect(completer, qOverload<const QString &>(&QCompleter::activated), this,
            &RecentsOnForm::use, Qt::QueuedConnection);
    first->setCompleter(completer);
}

/// Puts a recent entry into the boxes it was entered in.
void RecentsOnForm::use(const QString &text)
{
    if (state.Kind != SearchKind::Person) {
        ui.txtSearchName[0]->setText(text);
        return;
    }
    const std::array<QString, 3> names = MruNameParts(text);
    for (size_t i = 0; i < names.size(); ++i)
        ui.txtSearchName[i]->setText(names[i]);
}
