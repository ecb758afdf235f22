#include "prefs/frmInfo.h"

#include "controls/ModalDialog.h"
#include "controls/ScreenFit.h"
#include "controls/WrappedText.h"
#include "core/TextUtilities.h"
#include "ui_frmInfo.h"

frmInfo::frmInfo(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::frmInfo>())
{
    ui->setupUi(this);
    connect(ui->Command1, &QPushButton::clicked, this, &QDialog::accept);
    ui->Command1->setFocus();
    FitTexts();
}

frmInfo::~frmInfo() = default;

void frmInfo::ShowFieldError(QWidget *parent, const QString &what, const QString &why,
                             const QString &action, const QString &caption)
{
    ModalDialog<frmInfo> window(parent);
    if (!caption.isEmpty())
        window->setWindowTitle(caption);
    window->ui->Label1_0->setText(what);
    window->ui->Label1_1->setText(why);
    window->ui->Label1_2->setText(action);
    window->FitTexts();
    window->setAccessibleDescription(what + u'\n' + why + u'\n' + action);
    window.Run();
}

void frmInfo::ShowInfo(const QString &first, const QString &second, const QString &third,
                       const QString &fourth)
{
    for (const QString &text : {first, second, third, fourth}) {
        if (!text.isEmpty())
            setWindowTitle(TitleText(TrimBlanks(text)));
    }
    FitTexts();
    show();
}

void frmInfo::FitTexts()
{
    // The height follows from the width, in which the texts wrap; beyond the screen they scroll.
    ensurePolished();
    setMinimumSize(0, 0);
    FitOnScreen(this, size());
    // The layouts would hear of new texts only when events run again.
    for (QGroupBox *frame : {ui->Frame1, ui->Frame2, ui->Frame3}) {
        frame->layout()->invalidate();
        frame->updateGeometry();
    }
    const QMargins margins = layout()->contentsMargins();
    const int textWidth = width() - margins.left() - margins.right();
    const int textHeight = ui->texts->layout()->totalHeightForWidth(textWidth);
    const int besides =
        margins.top() + margins.bottom() + layout()->spacing() + ui->Command1->sizeHint().height();
    FitOnScreen(this, QSize(width(), textHeight + besides));
    // A bar that is there for a moment makes the texts narrower and longer, and is needed then.
    const bool fits = height() >= textHeight + besides;
    ui->scrollTexts->setVerticalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff
                                                     : Qt::ScrollBarAsNeeded);
    if (fits)
        setMinimumSize(size());
}
