/// render_icons SVG OUTPUT SIZE...: draws an icon as square PNG files, where an icon theme has them: size 48
/// becomes OUTPUT/48x48/apps/NAME.png, NAME being the SVG file's. Exits 1 with a line on stderr when it
/// cannot.

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdlib>
#include <iostream>

using namespace Qt::StringLiterals;

static QImage rendered(QSvgRenderer& drawing, int size)
{
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    return image;
}

static bool save(const QImage& image, const QString& theme, const QString& name)
{
    const QString folder = u"%1/%2x%2/apps"_s.arg(theme).arg(image.width());
    return QDir().mkpath(folder) && image.save(u"%1/%2.png"_s.arg(folder, name), "PNG");
}

int main(int argc, char* argv[])
{
    const QStringList arguments = [argc, argv] {
        QStringList list;
        for (int index = 1; index < argc; ++index)
            list += QString::fromLocal8Bit(argv[index]);
        return list;
    }();
    if (arguments.size() < 3) {
        std::cerr << "usage: render_icons SVG OUTPUT SIZE...\n";
        return EXIT_FAILURE;
    }
    const QFileInfo source(arguments[0]);
    QSvgRenderer drawing(source.filePath());
    if (!drawing.isValid()) {
        std::cerr << "render_icons: no drawing: " << qPrintable(source.filePath()) << '\n';
        return EXIT_FAILURE;
    }
    for (const QString& size : arguments.mid(2)) {
        const int edge = size.toInt();
        if (edge <= 0 || !save(rendered(drawing, edge), arguments[1], source.completeBaseName())) {
            std::cerr << "render_icons: cannot draw or write size " << qPrintable(size) << '\n';
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
