#include "Symbols.h"

#include "Palette.h"

#include <QDir>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

/// The icons live in a static library, whose resources nobody registers unless asked to.
static void registerIcons()
{
    Q_INIT_RESOURCE(symbols);
}

namespace {

QString fileOf(const QString& name)
{
    [[maybe_unused]] static const bool registered = (registerIcons(), true);
    return u":/symbols/%1.svg"_s.arg(name);
}

void paintPlaceholder(QPainter& painter, const QRectF& box, const QColor& color)
{
    painter.setPen({color, 1, Qt::DotLine});
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.adjusted(1.5, 1.5, -1.5, -1.5));
}

void render(QPainter& painter, const QRectF& box, const QString& name, const QColor& color)
{
    QFile file(fileOf(name));
    if (!file.open(QIODevice::ReadOnly))
        return paintPlaceholder(painter, box, color);
    auto drawing = file.readAll();
    drawing.replace("currentColor", color.name(QColor::HexRgb).toLatin1());
    QSvgRenderer renderer(drawing);
    painter.setOpacity(painter.opacity() * color.alphaF());
    renderer.render(&painter, box);
}

class SymbolIconEngine : public QIconEngine
{
public:
    SymbolIconEngine(QString name, Brand::Tone tone) : name_(std::move(name)), tone_(tone) { }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        Symbols::paint(*painter, rect, name_, tint(mode));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        return Symbols::pixmap(name_, tint(mode), qMin(size.width(), size.height()));
    }

    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal scale) override
    {
        const auto edge = qMin(size.width(), size.height());
        return Symbols::pixmap(name_, tint(mode), qRound(edge / scale), scale);
    }

    QIconEngine* clone() const override { return new SymbolIconEngine(name_, tone_); }
    QString iconName() override { return name_; }

private:
    QColor tint(QIcon::Mode mode) const
    {
        if (mode == QIcon::Disabled)
            return Palette::color(Brand::muted);
        return Palette::color(mode == QIcon::Normal ? tone_ : Brand::blue);
    }

    QString name_;
    Brand::Tone tone_;
};

} // namespace

namespace Symbols {

QStringList names()
{
    fileOf({});
    auto files = QDir(u":/symbols"_s).entryList({u"*.svg"_s});
    for (auto& file : files)
        file.chop(4);
    return files;
}

bool contains(const QString& name)
{
    return QFile::exists(fileOf(name));
}

QPixmap pixmap(const QString& name, const QColor& color, int size, qreal devicePixelRatio)
{
    const auto key = u"symbol/%1/%2/%3/%4"_s.arg(name)
                         .arg(color.rgba(), 8, 16, QChar(u'0'))
                         .arg(size)
                         .arg(devicePixelRatio);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = QPixmap(QSize(size, size) * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    {
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        render(painter, {0, 0, qreal(size), qreal(size)}, name, color);
    }
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

void paint(QPainter& painter, const QRectF& box, const QString& name, const QColor& color)
{
    const auto edge = qRound(qMin(box.width(), box.height()));
    const QPointF corner(box.center().x() - edge / 2.0, box.center().y() - edge / 2.0);
    painter.drawPixmap(corner, pixmap(name, color, edge, painter.device()->devicePixelRatioF()));
}

QIcon icon(const QString& name, Brand::Tone tone)
{
    return QIcon(new SymbolIconEngine(name, tone));
}

} // namespace Symbols
