#include "DropArea.h"

#include "Accessibility.h"
#include "Layouts.h"
#include "Palette.h"
#include "PlainLabel.h"
#include "Spacing.h"
#include "SymbolView.h"

#include <QAbstractButton>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

/// Room inside the dashes.
constexpr int padding = 20;
constexpr qreal idleEdge = 1.5;
constexpr qreal hoverEdge = 2;
/// In pixels.
constexpr qreal idleDash = 3;
constexpr qreal idleGap = 2;
constexpr qreal hoverDash = 4;
constexpr qreal hoverGap = 3;

/// A thickness that fills whole pixels of the screen, or a hairline would be smeared over two rows of them.
qreal crisp(qreal thickness, qreal pixelRatio)
{
    return std::max(1.0, std::floor(thickness * pixelRatio)) / pixelRatio;
}

} // namespace

DropArea::DropArea(
    const QString& systemImage, const QString& heading, const QStringList& lines, QWidget* parent)
    : QWidget(parent), column_(Layouts::column(4))
{
    Accessibility::setRole(this, QAccessible::Grouping);
    setAccessibleName(heading);
    setAccessibleDescription(lines.join(u' '));
    setAcceptDrops(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    constexpr int margin = padding + 1;
    column_->setContentsMargins(margin, margin, margin, margin);
    column_->addWidget(new SymbolView(systemImage, IconSize::large(), Brand::blue), 0, Qt::AlignHCenter);
    column_->addSpacing(8);
    auto* title = new PlainLabel(heading, Type::sub);
    title->setAlignment(Qt::AlignHCenter);
    column_->addWidget(title);
    for (const auto& line : lines) {
        auto* label = new PlainLabel(line, Type::small, Brand::steel);
        label->setAlignment(Qt::AlignHCenter);
        column_->addWidget(label);
    }
    setLayout(column_);
}

void DropArea::addButton(QAbstractButton* button)
{
    if (!std::exchange(hasButton_, true))
        column_->addSpacing(12);
    column_->addWidget(button, 0, Qt::AlignHCenter);
}

QList<QUrl> DropArea::localFiles(const QList<QUrl>& addresses)
{
    QList<QUrl> files;
    std::ranges::copy_if(addresses, std::back_inserter(files), [](const QUrl& address) {
        const auto host = address.host();
        return address.isLocalFile() && (host.isEmpty() || host == u"localhost"_s)
            && !address.toLocalFile().isEmpty();
    });
    return files;
}

void DropArea::setHovered(bool hovered)
{
    if (hovered == hovered_)
        return;
    hovered_ = hovered;
    update();
    emit hoveredChanged(hovered);
}

void DropArea::dragEnterEvent(QDragEnterEvent* event)
{
    if (localFiles(event->mimeData()->urls()).isEmpty())
        return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    setHovered(true);
}

void DropArea::dragLeaveEvent(QDragLeaveEvent*)
{
    setHovered(false);
}

void DropArea::dropEvent(QDropEvent* event)
{
    setHovered(false);
    const auto files = localFiles(event->mimeData()->urls());
    if (files.isEmpty())
        return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    emit filesDropped(files);
}

void DropArea::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal edge = crisp(hovered_ ? hoverEdge : idleEdge, devicePixelRatioF());
    QPen pen(Palette::color(hovered_ ? Brand::blue : Brand::muted), edge);
    // In units of the pen's width.
    pen.setDashPattern(hovered_ ? QList<qreal>{hoverDash / edge, hoverGap / edge}
                                : QList<qreal>{idleDash / edge, idleGap / edge});
    pen.setCapStyle(Qt::FlatCap);
    painter.setPen(pen);
    painter.setBrush(Palette::color(hovered_ ? Brand::paleBlue : Brand::panel));
    const qreal inset = edge / 2;
    painter.drawRoundedRect(
        QRectF(rect()).adjusted(inset, inset, -inset, -inset), Radius::block, Radius::block);
}
