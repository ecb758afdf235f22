#include "controls/StatusColour.h"

#include <QLabel>

namespace {
// As stored with the windows, blue in the high byte: 0xC00000 and 255.
constexpr QRgb normalColour = 0xFF0000C0;
constexpr QRgb troubleColour = 0xFFFF0000;
constexpr QRgb normalOnDark = 0xFF8AB4F8;
constexpr QRgb troubleOnDark = 0xFFFF7B72;
constexpr int darkLightness = 128;
} // namespace

void SetStatusStyle(QLabel *label, StatusColour colour, bool bold)
{
    QPalette palette = label->palette();
    const bool dark = palette.color(QPalette::Window).lightness() < darkLightness;
    const QRgb shade = colour == StatusColour::Normal ? (dark ? normalOnDark : normalColour)
                                                      : (dark ? troubleOnDark : troubleColour);
    palette.setColor(QPalette::WindowText, QColor::fromRgba(shade));
    label->setPalette(palette);
    QFont font = label->font();
    font.setBold(bold);
    label->setFont(font);
}
