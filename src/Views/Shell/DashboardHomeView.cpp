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

#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int widest = 1280;
constexpr int heroPadding = 28;
constexpr int heroPaddingWide = 48;
constexpr int heroChip = 64;
constexpr int cardChip = 44;
constexpr int featuresAcross = 32;
constexpr int featuresDown = 24;
/// Width of the page from which two features stand in a row, and all of them.
constexpr int besideFrom = 640;
constexpr int allBesideFrom = 1160;

} // namespace

DashboardHomeView::DashboardHomeView(DashboardHomeModel model, QWidget* parent)
    : Page(widest, parent), model_(std::move(model))
{
    AuthManager& auth = model_.context().auth;
    follow(this, auth.user, [this](const std::optional<AuthUser>&) { showAudience(); });
    follow(this, auth.activeRole, [this](AppRole) { showAudience(); });
}

/// Nobody loses their place because of a new token.
void DashboardHomeView::showAudience()
{
    QStringList now;
    if (model_.showsSignedInCard())
        now << model_.signedInName() << model_.activeRoleLine();
    for (const Shortcut& action : model_.quickActions())
        now += action.title;
    if (shownTo_ != now) {
        shownTo_ = now;
        rebuild();
    }
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
    hero_ = hero;
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
    features_.clear();
    featureColumns_ = 0;
    featureRows_ = Layouts::column(featuresDown);
    for (const DashboardHomeModel::Feature& feature : DashboardHomeModel::features())
        features_ += new FeatureLine(feature.systemImage, feature.title, feature.text);
    auto* card = new Card;
    card->add(featureRows_);
    column()->addWidget(card);
    fit(card);
    arrangeParts();
}

/// As many features side by side as the width allows, which large text takes for itself; a large window gives
/// the greeting more room.
void DashboardHomeView::arrangeParts()
{
    const int all = int(features_.size());
    const bool isWide = width() >= Type::scaled(allBesideFrom);
    const int columns = isWide ? all : width() >= Type::scaled(besideFrom) ? 2 : 1;
    hero_->setPadding(isWide ? heroPaddingWide : heroPadding);
    if (columns == std::exchange(featureColumns_, columns))
        return;
    while (QLayoutItem* row = featureRows_->takeAt(0))
        delete row;
    for (int first = 0; first < all; first += columns) {
        auto* row = Layouts::row(featuresAcross);
        for (QWidget* feature : features_.mid(first, columns))
            row->addWidget(feature, 1);
        featureRows_->addLayout(row);
    }
}

void DashboardHomeView::resizeEvent(QResizeEvent* event)
{
    Page::resizeEvent(event);
    arrangeParts();
}
