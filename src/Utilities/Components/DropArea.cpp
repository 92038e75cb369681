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
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 20;
constexpr qreal idleEdge = 1.5;
constexpr qreal hoverEdge = 2;

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
    column_->setContentsMargins(padding, padding, padding, padding);
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
    const qreal edge = hovered_ ? hoverEdge : idleEdge;
    QPen pen(Palette::color(hovered_ ? Brand::blue : Brand::muted), edge);
    // In units of the pen's width.
    pen.setDashPattern(hovered_ ? QList<qreal>{4 / edge, 3 / edge} : QList<qreal>{3 / edge, 2 / edge});
    pen.setCapStyle(Qt::FlatCap);
    painter.setPen(pen);
    painter.setBrush(Palette::color(hovered_ ? Brand::paleBlue : Brand::panel));
    const qreal inset = edge / 2;
    painter.drawRoundedRect(
        QRectF(rect()).adjusted(inset, inset, -inset, -inset), Radius::block, Radius::block);
}
