#include "Shell/DashboardHomeView.h"

#include "Bindings.h"
#include "Components/Card.h"
#include "Components/Chip.h"
#include "Components/FeatureLine.h"
#include "Components/PlainLabel.h"
#include "Components/PrimaryButton.h"
#include "Components/SecondaryButton.h"
#include "Layouts.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int widest = 1120;
constexpr int heroPadding = 28;
constexpr int heroChip = 64;
constexpr int cardChip = 44;
constexpr int featuresAcross = 32;

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
    Layouts::clear(column());
    addHero();
    if (model_.showsSignedInCard())
        addSignedInCard();
    addQuickActions();
    addFeatures();
}

void DashboardHomeView::addHero()
{
    auto* hero = new Surface(Surface::Kind::dark, heroPadding);
    auto* texts = Layouts::column(2,
        {new PlainLabel(DashboardHomeModel::heroTitle(), Type::display, Brand::onDarkTitle),
            new PlainLabel(DashboardHomeModel::heroText(), Type::body, Brand::onDarkText)});
    auto* row = Layouts::row(20, {new Chip(u"checkmark.seal.fill"_s, heroChip, Chip::Look::onDark)});
    row->addLayout(texts, 1);
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
    auto* row = Layouts::row(Spacing::buttons);
    for (const DashboardHomeModel::QuickAction& action : model_.quickActions()) {
        Button* button = nullptr;
        if (action.isPrimary)
            button = new PrimaryButton(action.title, action.systemImage);
        else
            button = new SecondaryButton(action.title, action.systemImage);
        connect(button, &Button::clicked, this, [this, action] { model_.run(action); });
        row->addWidget(button);
    }
    row->addStretch();
    column()->addLayout(row);
}

void DashboardHomeView::addFeatures()
{
    constexpr int perRow = 2;
    auto* grid = new QGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(featuresAcross);
    grid->setVerticalSpacing(24);
    int place = 0;
    for (const DashboardHomeModel::Feature& feature : DashboardHomeModel::features()) {
        auto* line = new FeatureLine(feature.systemImage, feature.title, feature.text);
        grid->addWidget(line, place / perRow, place % perRow, Qt::AlignTop);
        grid->setColumnStretch(place % perRow, 1);
        ++place;
    }
    auto* card = new Card;
    card->add(grid);
    column()->addWidget(card);
    fit(card);
}
