#include "Booking/FeePanel.h"

#include "Bindings.h"
#include "Booking/BookRemoteNotaryModel.h"
#include "Components/CompactStatCard.h"
#include "Components/PlainLabel.h"
#include "Components/Stepper.h"
#include "Components/Switch.h"
#include "Layouts.h"
#include "Paint.h"
#include "Palette.h"
#include "Spacing.h"

#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

static constexpr int edge = 1;
static constexpr int betweenRows = 12;

namespace {

/// The panel fills what lies behind the figure, because its corners are the panel's.
class FeeFigure : public CompactStatCard
{
public:
    FeeFigure()
        : CompactStatCard(u"Estimated Notary Fee"_s, {}, u"dollarsign.circle.fill"_s, {}, Look::banner)
    { }

protected:
    void paintEvent(QPaintEvent*) override { }
};

} // namespace

FeePanel::FeePanel(BookRemoteNotaryModel& model, QWidget* parent)
    : QWidget(parent), fee_(new FeeFigure), parts_(new QBoxLayout(QBoxLayout::TopToBottom, this))
{
    const auto showFee = [this, &model] {
        fee_->setValue(model.feeText());
        fee_->setCaption(model.feeCaption());
    };
    follow(fee_, model.actCount, [showFee](int) { showFee(); });
    follow(fee_, model.documentRetrievalOption, [showFee](const QString&) { showFee(); });

    parts_->setContentsMargins(edge, edge, edge, edge);
    parts_->setSpacing(0);
    parts_->addWidget(fee_, 1);
    count_ = makeCount(model);
    parts_->addWidget(count_, 1);
}

QWidget* FeePanel::makeCount(BookRemoteNotaryModel& model)
{
    auto* label = new PlainLabel({}, Type::label);
    auto* count = new Stepper(u"Number of Signatures"_s, BookRemoteNotaryModel::leastSignatures,
        BookRemoteNotaryModel::mostSignatures);
    auto* unknown = new Switch(u"Unknown"_s);
    label->setBuddy(count);
    bind(count, model.actCount);
    bind(unknown, model.actUnknown);
    const auto showCount = [label, &model] { label->setText(model.signatureCountText()); };
    follow(label, model.actCount, [showCount](int) { showCount(); });
    follow(label, model.actUnknown, [showCount](bool) { showCount(); });
    follow(count, model.actUnknown, [count](bool isUnknown) { count->setEnabled(!isUnknown); });

    // So little that two digits fit beside the stepper in the narrow rail.
    auto* stepping = Layouts::row(4);
    stepping->addWidget(label, 1, Qt::AlignVCenter);
    stepping->addWidget(count);
    auto* rows = Layouts::column(betweenRows);
    rows->setContentsMargins(Spacing::card, Spacing::card, Spacing::card, Spacing::card);
    rows->addStretch();
    rows->addLayout(stepping);
    rows->addWidget(unknown, 0, Qt::AlignLeading);
    rows->addStretch();
    return Layouts::holding(rows);
}

void FeePanel::setLocked(bool locked)
{
    count_->setEnabled(!locked);
}

void FeePanel::setAcross(bool across)
{
    parts_->setDirection(across ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    update();
}

/// The figure's part of the panel, up to the panel's edges.
QRect FeePanel::feeArea() const
{
    const QRect figure = fee_->geometry();
    if (parts_->direction() == QBoxLayout::TopToBottom)
        return figure.adjusted(-edge, -edge, edge, 0);
    return isRightToLeft() ? figure.adjusted(0, -edge, edge, edge) : figure.adjusted(-edge, -edge, 0, edge);
}

void FeePanel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    Paint::roundedRect(
        painter, rect(), Radius::card, Palette::color(Brand::card), Palette::color(Brand::line));
    QPainterPath panel;
    panel.addRoundedRect(rect(), Radius::card, Radius::card);
    QPainterPath fee;
    fee.addRect(feeArea());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(panel & fee, Palette::darkGradient(feeArea()));
}
