// Renders the program's picture in each size that desktops look for.

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {
constexpr std::array<int, 9> sizes{16, 22, 24, 32, 48, 64, 128, 256, 512};

bool render(QSvgRenderer &picture, int size, const QString &path)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    painter.end();
    return QDir().mkpath(QFileInfo(path).path()) && image.save(path, "PNG");
}
} // namespace

/// RenderIcons <picture.svg> <folder> <name>: writes <folder>/<n>x<n>/apps/<name>.png, as the icon
/// theme hicolor has them. Needs neither a display nor an application object, since nothing in the
/// picture is text.
int main(int argc, char **argv)
{
    if (argc != 4) {
        std::fputs("Usage: RenderIcons <picture.svg> <folder> <name>\n", stderr);
        return 2;
    }
    QSvgRenderer picture(QString::fromLocal8Bit(argv[1]));
    bool done = picture.isValid();
    for (const int size : sizes) {
        const QString path =
            QString::fromLocal8Bit(argv[2])
            + u"/%1x%1/apps/%2.png"_s.arg(QString::number(size), QString::fromLocal8Bit(argv[3]));
        done = done && render(picture, size, path);
    }
    return done ? 0 : 1;
}
