#include "controls/StatusColour.h"

#include <QEvent>
#include <QLabel>

namespace {
// As stored with the windows, blue in the high byte: 0xC00000 and 255.
constexpr QRgb normalColour = 0xFF0000C0;
constexpr QRgb troubleColour = 0xFFFF0000;
constexpr QRgb normalOnDark = 0xFF8AB4F8;
constexpr QRgb troubleOnDark = 0xFFFF7B72;
constexpr int darkLightness = 128;

/// Keeps a label in its colour: the desktop may turn dark, or light again, while it is there.
class LabelShade : public QObject
{
    Q_OBJECT
public:
    explicit LabelShade(QLabel *shadedLabel) : QObject(shadedLabel), label(shadedLabel)
    {
        label->installEventFilter(this);
    }

    static LabelShade *Of(QLabel *label)
    {
        auto *shade = label->findChild<LabelShade *>(QString(), Qt::FindDirectChildrenOnly);
        return shade ? shade : new LabelShade(label);
    }

    void Show(StatusColour newColour)
    {
        colour = newColour;
        QPalette palette = label->palette();
        const bool dark = palette.color(QPalette::Window).lightness() < darkLightness;
        const QRgb shade = colour == StatusColour::Normal ? (dark ? normalOnDark : normalColour)
                                                          : (dark ? troubleOnDark : troubleColour);
        if (palette.color(QPalette::WindowText).rgb() == shade)
            return;
        palette.setColor(QPalette::WindowText, QColor::fromRgba(shade));
        label->setPalette(palette);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::PaletteChange)
            Show(colour);
        return QObject::eventFilter(watched, event);
    }

private:
    QLabel *label;
    StatusColour colour = StatusColour::Normal;
};
} // namespace

void SetStatusStyle(QLabel *label, StatusColour colour)
{
    LabelShade::Of(label)->Show(colour);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
}

#include "StatusColour.moc"
