#include "searchentry/SlipNote.h"

#include "core/Clock.h"
#include "searchentry/SearchControls.h"

SlipNote::SlipNote(SearchControls &controls, std::function<QString()> look)
    : ui(controls), timer(this)
{
    timer.setSingleShot(true);
    timer.setInterval(0);
    connect(&timer, &QTimer::timeout, this,
            [this, look = std::move(look)] { ui.lblSlip->setText(look()); });
    for (QComboBox *year : {ui.cboxSearchStartYear, ui.cboxSearchEndYear, ui.cboxSearchStartYear1,
                            ui.cboxSearchEndYear1})
        connect(year, &QComboBox::currentIndexChanged, this, &SlipNote::LookAgain);
    for (QRadioButton *range : {ui.optSearchYears_1, ui.optSearchYears1_1})
        connect(range, &QRadioButton::toggled, this, &SlipNote::LookAgain);
    connect(ui.lboxDiscisCourtNames, &QListWidget::itemChanged, this, &SlipNote::LookAgain);
    for (const QLineEdit *box : ui.txtSearchName)
        connect(box, &QLineEdit::textChanged, this, &SlipNote::LookAgain);
}

void SlipNote::Started(const SearchEntry &entry)
{
    const QString note = repeated.Note(entry, Clock::Current().Now());
    if (note.isEmpty())
        return;
    timer.stop();
    ui.lblSlip->setText(note);
}
