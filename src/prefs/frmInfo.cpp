#include "prefs/frmInfo.h"

#include "core/TextUtilities.h"
#include "prefs/ScreenFit.h"
#include "ui_frmInfo.h"

#include <QPointer>

frmInfo::frmInfo(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::frmInfo>())
{
    ui->setupUi(this);
    connect(ui->Command1, &QPushButton::clicked, this, &QDialog::accept);
}

frmInfo::~frmInfo() = default;

void frmInfo::ShowFieldError(QWidget *parent, const QString &what, const QString &why,
                             const QString &action, const QString &caption)
{
    const QPointer<frmInfo> window(new frmInfo(parent));
    if (!caption.isEmpty())
        window->setWindowTitle(caption);
    window->ui->Label1_0->setText(what);
    window->ui->Label1_1->setText(why);
    window->ui->Label1_2->setText(action);
    window->FitTexts();
    window->exec();
    delete window;
}

void frmInfo::ShowInfo(const QString &first, const QString &second, const QString &third,
                       const QString &fourth)
{
    for (const QString &text : {first, second, third, fourth}) {
        if (!text.isEmpty())
            setWindowTitle(TrimBlanks(text));
    }
    FitTexts();
    show();
}

void frmInfo::FitTexts()
{
    // The height follows from the width, in which the texts wrap; beyond the screen they scroll.
    ensurePolished();
    const QMargins margins = layout()->contentsMargins();
    const int textWidth = width() - margins.left() - margins.right();
    const int textHeight = ui->texts->layout()->totalHeightForWidth(textWidth);
    const int besides = layout()->sizeHint().height() - ui->scrollTexts->sizeHint().height();
    FitOnScreen(this, QSize(width(), textHeight + besides));
}
