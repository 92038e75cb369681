#include "Account/SettingsContentView.h"

#include "Bindings.h"
#include "Components/Card.h"
#include "Components/Chip.h"
#include "Components/EmptyStateView.h"
#include "Components/FeatureLine.h"
#include "Components/PlainLabel.h"
#include "Components/PrimaryButton.h"
#include "Components/SecondaryButton.h"
#include "Components/SectionTitle.h"
#include "Components/SegmentedControl.h"
#include "Components/SoftDivider.h"
#include "Layouts.h"
#include "Page.h"

using namespace Qt::StringLiterals;

static constexpr int widest = 1040;
static constexpr int signInWidth = 120;

SettingsContentView::SettingsContentView(std::shared_ptr<SettingsContentModel> model, QWidget* parent)
    : QStackedWidget(parent), model_(std::move(model))
{
    addWidget(makeSignedOut());
    addWidget(makeSignedIn());
    follow(this, model_->context().auth.user,
        [this](const std::optional<AuthUser>& user) { setCurrentIndex(user ? 1 : 0); });
}

QWidget* SettingsContentView::makeSignedOut()
{
    auto* prompt = new EmptyStateView(u"person.crop.circle"_s, u"Sign in required"_s,
        u"Sign in to update your profile, change your password, and access your saved sessions."_s);
    auto* signIn = new PrimaryButton(u"Sign In"_s);
    signIn->setMinimumWidth(Type::scaled(signInWidth));
    connect(signIn, &Button::clicked, this, [model = model_] { model->signIn(); });
    prompt->setActions(signIn);
    return prompt;
}

QWidget* SettingsContentView::makeSignedIn()
{
    Card* account = makeAccountCard();
    Card* preferences = makePreferencesCard();
    Card* about = makeAboutCard();
    auto* left = Layouts::column(0, {account});
    auto* right = Layouts::column(0, {preferences, about});
    left->addStretch();
    right->addStretch();
    auto* columns = new QBoxLayout(QBoxLayout::TopToBottom);
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);

    auto* page = new Page(widest);
    page->addHeader(makeHeader());
    page->column()->addLayout(columns);
    for (Card* card : {account, preferences, about})
        page->fit(card);
    const auto arrange = [page, left, right, columns](bool compact) {
        columns->setDirection(compact ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
        for (QBoxLayout* layout : {columns, static_cast<QBoxLayout*>(left), static_cast<QBoxLayout*>(right)})
            layout->setSpacing(page->column()->spacing());
    };
    arrange(page->isCompact());
    connect(page, &Page::compactChanged, this, arrange);
    return page;
}

QWidget* SettingsContentView::makeHeader()
{
    auto* signOut = new SecondaryButton(u"Sign Out"_s, u"rectangle.portrait.and.arrow.right"_s);
    connect(signOut, &Button::clicked, this, [model = model_] { model->signOut(); });
    auto* row = Layouts::row(Spacing::buttons);
    row->addLayout(
        Layouts::column(4,
            {new PlainLabel(u"Profile & Preferences"_s, Type::title),
                new PlainLabel(u"Keep your desktop profile, password, and active workspace up to date."_s,
                    Type::body, Brand::steel)}),
        1);
    row->addWidget(signOut, 0, Qt::AlignVCenter);
    return Layouts::holding(row);
}

Card* SettingsContentView::makeAccountCard()
{
    auto* chip = new Chip({});
    auto* role = new PlainLabel({}, Type::sub);
    follow(this, model_->context().auth.activeRole, [this, chip, role](AppRole) {
        chip->setSystemImage(systemImage(model_->role()));
        role->setText(title(model_->role()));
    });
    auto* row = Layouts::row(12, {chip});
    row->addLayout(
        Layouts::column(0, {new PlainLabel(u"Active Role"_s, Type::small, Brand::steel), role}), 1);
    auto* card = new Card;
    card->add(new SectionTitle(u"Account"_s, u"Active workspace"_s));
    card->add(row, 16);
    return card;
}

Card* SettingsContentView::makePreferencesCard()
{
    auto* card = new Card;
    card->add(new SectionTitle(u"Preferences"_s, u"Tune the desktop app for the way your office works."_s));
    card->add(makeAppearance(), 16);
    card->add(new SoftDivider, 16);
    card->add(new FeatureLine(u"menubar.rectangle"_s, u"Menu Bar"_s,
                  u"Book and open sessions from the top status menu."_s),
        16);
    card->add(
        new FeatureLine(u"clock.fill"_s, u"Default Zone"_s, u"Scheduling defaults to New York time."_s), 12);
    card->add(new SoftDivider, 16);
    card->add(new PlainLabel(u"The app will return to login automatically if your secure session ends."_s,
                  Type::small, Brand::steel),
        16);
    return card;
}

QWidget* SettingsContentView::makeAppearance()
{
    QList<SegmentedControl::Option> options;
    for (const AppAppearanceMode mode : SettingsContentModel::appearanceChoices())
        options += {title(mode), rawValue(mode)};
    auto* control = new SegmentedControl(u"Appearance"_s, options);
    follow(control, model_->appearance.mode,
        [control](AppAppearanceMode mode) { control->setValue(rawValue(mode)); });
    connect(control, &SegmentedControl::valueChanged, this, [model = model_](const QString& value) {
        if (const std::optional<AppAppearanceMode> mode = appAppearanceMode(value))
            model->appearance.choose(*mode);
    });
    auto* column = Layouts::column(0,
        {new PlainLabel(u"Appearance"_s, Type::strong),
            new PlainLabel(
                u"Choose a dedicated light or dark workspace, or follow your Mac's system appearance."_s,
                Type::body, Brand::steel)});
    column->addSpacing(12);
    column->addWidget(control);
    return Layouts::holding(column);
}

Card* SettingsContentView::makeAboutCard()
{
    auto* support = new SecondaryButton(u"Contact Support"_s, u"envelope.fill"_s);
    auto* website = new SecondaryButton(u"Visit Website"_s, u"safari"_s);
    connect(support, &Button::clicked, this, [model = model_] { model->contactSupport(); });
    connect(website, &Button::clicked, this, [model = model_] { model->visitWebsite(); });
    auto* buttons = Layouts::row(Spacing::buttons, {support, website});
    buttons->addStretch();
    auto* card = new Card;
    card->add(new SectionTitle(u"About Quorvel"_s,
        u"Remote notary booking, session tracking, and role-based desktop workflows for clients, notaries, "
        "businesses, and office staff."_s));
    card->add(buttons, 16);
    return card;
}
