#include "Shell/DashboardHomeView.h"

#include "Bindings.h"
#include "Components/Card.h"
#include "Components/Chip.h"
#include "Components/FeatureLine.h"
#include "Components/PlainLabel.h"
#include "Components/SecondaryButton.h"
#include "Dashboards/ShortcutRow.h"
#include "Layouts.h"
#include "PaneKeys.h"

#include <QBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int widest = 1120;
constexpr int heroPadding = 28;
constexpr int heroChip = 64;
constexpr int cardChip = 44;
constexpr int featuresAcross = 32;
constexpr int featuresDown = 24;
/// Width of the page from which two features stand in a row.
constexpr int besideFrom = 640;

} // namespace

DashboardHomeView::DashboardHomeView(DashboardHomeModel model, QWidget* parent)
    : Page(widest, parent), model_(std::move(model))
{
    AuthManager& auth = model_.context().auth;
    follow(this, auth.user, [this](const std::optional<AuthUser>&) { rebuild(); });
    follow(this, auth.activeRole, [this](AppRole) { rebuild(); });
}

void DashboardHomeView::rebuild()
{
    const std::optional<Qt::FocusReason> focus = PaneKeys::focusWithin(this);
    Layouts::clear(column());
    addHero();
    if (model_.showsSignedInCard())
        addSignedInCard();
    addQuickActions();
    addFeatures();
    // The new parts show themselves with the next events only.
    if (focus)
        QMetaObject::invokeMethod(
            this, [this, reason = *focus] { PaneKeys::enter(this, reason); }, Qt::QueuedConnection);
}

void DashboardHomeView::addHero()
{
    auto* hero = new Surface(Surface::Kind::dark, heroPadding);
    auto* texts = Layouts::column(2,
        {new PlainLabel(DashboardHomeModel::heroTitle(), Type::display, Brand::onDarkTitle),
            new PlainLabel(DashboardHomeModel::heroText(), Type::body, Brand::onDarkText)});
    auto* row = Layouts::row(20, {new Chip(u"checkmark.seal.fill"_s, heroChip, Chip::Look::onDark)});
    row->addWidget(Layouts::holding(texts), 1, Qt::AlignVCenter);
    hero->add(row);
    column()->addWidget(hero);
}

void DashboardHomeView::addSignedInCard()
{
    auto* name = new PlainLabel(model_.signedInName(), Type::heading);
    name->setFit(PlainLabel::Fit::elide);
    auto* signOut = new SecondaryButton(u"Sign Out"_s);
    connect(signOut, &Button::clicked, this, [this] { model_.signOut(); });

    auto* card = new Card;
    auto* row = Layouts::row(16, {new Chip(systemImage(model_.role()), cardChip)});
    row->addLayout(Layouts::column(0,
                       {new PlainLabel(u"Signed in"_s, Type::small, Brand::steel), name,
                           new PlainLabel(model_.activeRoleLine(), Type::body, Brand::steel)}),
        1);
    row->addWidget(signOut, 0, Qt::AlignVCenter);
    card->add(row);
    column()->addWidget(card);
    fit(card);
}

void DashboardHomeView::addQuickActions()
{
    auto* row = new ShortcutRow(model_.quickActions());
    connect(row, &ShortcutRow::chosen, this, [this](const Shortcut& action) { model_.run(action); });
    column()->addWidget(row);
}

void DashboardHomeView::addFeatures()
{
    constexpr int perRow = 2;
    auto* rows = Layouts::column(featuresDown);
    featureRows_.clear();
    for (const DashboardHomeModel::Feature& feature : DashboardHomeModel::features()) {
        if (featureRows_.isEmpty() || featureRows_.constLast()->count() == perRow) {
            featureRows_ += Layouts::row(featuresAcross);
            rows->addLayout(featureRows_.constLast());
        }
        featureRows_.constLast()->addWidget(
            new FeatureLine(feature.systemImage, feature.title, feature.text), 1);
    }
    auto* card = new Card;
    card->add(rows);
    column()->addWidget(card);
    fit(card);
    arrangeFeatures();
}

/// Side by side, and one under the other where large text needs the width.
void DashboardHomeView::arrangeFeatures()
{
    const bool beside = width() >= Type::scaled(besideFrom);
    for (QBoxLayout* row : std::as_const(featureRows_)) {
        row->setDirection(beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
        row->setSpacing(beside ? featuresAcross : featuresDown);
    }
}

void DashboardHomeView::resizeEvent(QResizeEvent* event)
{
    Page::resizeEvent(event);
    arrangeFeatures();
}
