#include "Account/LoginView.h"

#include "Account/WelcomePanel.h"
#include "AlertPresenter.h"
#include "Bindings.h"
#include "Components/Chip.h"
#include "Components/PlainLabel.h"
#include "Components/PrimaryButton.h"
#include "Components/ScrollPage.h"
#include "Components/SecureField.h"
#include "Components/SegmentedControl.h"
#include "Launch.h"
#include "Layouts.h"
#include "Palette.h"
#include "PaneKeys.h"
#include "Spacing.h"

#include <QGridLayout>
#include <QPainter>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr double welcomeShare = 0.42;
constexpr int welcomeLeast = 340;
constexpr int welcomeMost = 520;
constexpr int formWidest = 400;
constexpr int formMargin = 28;
constexpr int formMarginCompact = 24;

const QString signInMode = u"signIn"_s;
const QString registerMode = u"register"_s;

} // namespace

LoginView::LoginView(std::shared_ptr<LoginModel> model, QWidget* parent)
    : QWidget(parent), model_(std::move(model)), welcome_(new WelcomePanel), form_(new ScrollPage(makeForm()))
{
    auto* columns = Layouts::row(0, {welcome_, form_});
    columns->setStretch(1, 1);
    setLayout(columns);
    presentAlerts(this, model_->alert, [model = model_] { model->dismissAlert(); });
}

LoginView::~LoginView()
{
    model_->close();
}

void LoginView::followMode(std::function<void(bool)> apply)
{
    follow(this, model_->isRegistering, std::move(apply));
}

QWidget* LoginView::makeForm()
{
    auto* column = Layouts::column(0);
    column->addWidget(makeRequester());
    column->addSpacing(16);
    column->addWidget(makeModeSwitch());
    column->addSpacing(24);
    column->addWidget(makeHeading());
    column->addSpacing(16);
    column->addWidget(
        new PlainLabel(u"Your account determines which workspace appears, including client, business, "
                       "notary, or admin access."_s,
            Type::body, Brand::steel));
    column->addSpacing(20);
    column->addWidget(makeFields());
    column->addSpacing(24);
    column->addWidget(makeSubmit());

    auto* fields = Layouts::holding(column);
    fields->setMaximumWidth(Type::scaled(formWidest));
    auto* centred = Layouts::row(0);
    centred->addStretch(1);
    centred->addWidget(fields, 1000, Qt::AlignVCenter);
    centred->addStretch(1);
    return Layouts::holding(centred);
}

/// Which section asked for the sign-in.
QWidget* LoginView::makeRequester()
{
    auto* title = new PlainLabel(model_->title, Type::strong);
    auto* row = Layouts::row(8, {new Chip(model_->systemImage, 28)});
    row->addWidget(title, 1);
    return Layouts::holding(row);
}

QWidget* LoginView::makeModeSwitch()
{
    const QList<SegmentedControl::Option> modes{
        {u"Sign In"_s, signInMode}, {u"Create Account"_s, registerMode}};
    auto* control = new SegmentedControl(u"Mode"_s, modes);
    followMode([control](bool registering) { control->setValue(registering ? registerMode : signInMode); });
    connect(control, &SegmentedControl::valueChanged, this,
        [this](const QString& mode) { model_->isRegistering = mode == registerMode; });
    return control;
}

QWidget* LoginView::makeHeading()
{
    auto* chip = new Chip({}, 44);
    auto* title = new PlainLabel({}, Type::title);
    auto* line = new PlainLabel({}, Type::body, Brand::steel);
    followMode([chip, title, line](bool registering) {
        chip->setSystemImage(registering ? u"person.badge.plus"_s : u"lock.open.fill"_s);
        title->setText(registering ? u"Create Account"_s : u"Sign In"_s);
        line->setText(registering ? u"Create your Quorvel account."_s
                                  : u"Sign in to continue to your desktop workspace."_s);
    });
    auto* row = Layouts::row(12, {chip});
    row->addLayout(Layouts::column(0, {title, line}), 1);
    return Layouts::holding(row);
}

QWidget* LoginView::makeFields()
{
    const auto bound = [this](TextField* field, QProperty<QString>& property) {
        bind(field, property);
        connect(field, &TextField::returnPressed, this, &LoginView::submit);
        return field;
    };
    auto* registration = new QGridLayout;
    registration->setContentsMargins(0, 0, 0, Spacing::fieldsDown);
    registration->setHorizontalSpacing(Spacing::fieldsAcross);
    registration->setVerticalSpacing(Spacing::fieldsDown);
    registration->addWidget(bound(new TextField(u"Full Name"_s, u"Jordan Ellis"_s), model_->name), 0, 0);
    registration->addWidget(bound(new TextField(u"Phone"_s, u"(555) 010-0199"_s), model_->phone), 0, 1);
    registration->addWidget(bound(new TextField(u"City"_s, u"Springfield"_s), model_->city), 1, 0);
    registration->addWidget(bound(new TextField(u"State"_s, u"New York"_s), model_->state), 1, 1);
    auto* registrationFields = Layouts::holding(registration);
    followMode([registrationFields](bool registering) { registrationFields->setVisible(registering); });

    auto* email = bound(new TextField(u"Email"_s, u"name@example.com"_s), model_->email);
    auto* password = bound(new SecureField(u"Password"_s, u"Password"_s), model_->password);
    PaneKeys::setEntry(this, email);

    auto* column = Layouts::column(0, {registrationFields, email});
    column->addSpacing(Spacing::fieldsDown);
    column->addWidget(password);
    return Layouts::holding(column);
}

QWidget* LoginView::makeSubmit()
{
    auto* button = new PrimaryButton(u"Sign In"_s);
    button->setButtonSize(Button::Size::large);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    followMode(
        [button](bool registering) { button->setTitle(registering ? u"Create Account"_s : u"Sign In"_s); });
    follow(this, model_->isBusy(), [button](bool busy) { button->setLoading(busy); });
    connect(button, &Button::clicked, this, &LoginView::submit);
    return button;
}

void LoginView::submit()
{
    launch(model_->submit());
}

void LoginView::paintEvent(QPaintEvent*)
{
    const QRect form = rect().adjusted(welcome_->isHidden() ? 0 : welcome_->width(), 0, 0, 0);
    QPainter(this).fillRect(QStyle::visualRect(layoutDirection(), rect(), form), Palette::color(Brand::card));
}

void LoginView::resizeEvent(QResizeEvent*)
{
    const bool compact = width() < Type::scaled(Spacing::compactBelow);
    const int margin = compact ? formMarginCompact : formMargin;
    form_->widget()->setContentsMargins(margin, margin, margin, margin);
    const int welcomeWidth = std::clamp(qRound(width() * welcomeShare), welcomeLeast, welcomeMost);
    welcome_->setCompact(compact);
    welcome_->setFixedWidth(welcomeWidth);
    // Under large text the form comes first.
    welcome_->setVisible(width() - welcomeWidth >= form_->widget()->minimumSizeHint().width());
}
