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
#include "Components/StackingRow.h"
#include "FaultMark.h"
#include "FocusRing.h"
#include "Launch.h"
#include "Layouts.h"
#include "Palette.h"
#include "PaneKeys.h"
#include "Spacing.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double welcomeShare = 0.42;
constexpr int welcomeLeast = 340;
constexpr int welcomeMost = 520;
constexpr int formWidest = 400;
constexpr int formMargin = 28;
constexpr int formMarginCompact = 24;
/// Width of the form from which two fields stand in a row.
constexpr int pairFrom = 300;
/// Width from which there is room to say more in welcome than the program's name.
constexpr int fullWelcomeFrom = 640;

const QString signInMode = u"signIn"_s;
const QString registerMode = u"register"_s;

} // namespace

LoginView::LoginView(std::shared_ptr<LoginModel> model, QWidget* parent)
    : QWidget(parent), model_(std::move(model)), welcome_(new WelcomePanel), form_(new ScrollPage(makeForm()))
{
    auto* columns = Layouts::row(0, {welcome_, form_});
    columns->setStretch(1, 1);
    setLayout(columns);
    presentAlerts(this, model_->alert, [this] { closeAlert(); });
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
    column->addSpacing(24);
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
        [this](const QString& mode) { chooseMode(mode == registerMode); });
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
    const auto pair = [](TextField* first, TextField* second) {
        auto* row = new StackingRow(Spacing::fieldsAcross, Spacing::fieldsDown);
        row->setStackedBelow(pairFrom);
        row->add(first, 1);
        row->add(second, 1);
        return row;
    };
    name_ = bound(new TextField(u"Full Name"_s, u"Jordan Ellis"_s), model_->name);
    auto* phone = bound(new TextField(u"Phone"_s, u"(555) 010-0199"_s), model_->phone);
    auto* city = bound(new TextField(u"City"_s, u"Springfield"_s), model_->city);
    auto* state = bound(new TextField(u"State"_s, u"New York"_s), model_->state);
    auto* registration = Layouts::column(Spacing::fieldsDown, {pair(name_, phone), pair(city, state)});
    registration->setContentsMargins(0, 0, 0, Spacing::fieldsDown);
    auto* registrationFields = Layouts::holding(registration);
    followMode([registrationFields](bool registering) { registrationFields->setVisible(registering); });

    email_ = bound(new TextField(u"Email"_s, u"name@example.com"_s), model_->email);
    password_ = bound(new SecureField(u"Password"_s, u"Password"_s), model_->password);
    followMode([this](bool) { PaneKeys::setEntry(this, firstField()); });

    auto* column = Layouts::column(0, {registrationFields, email_});
    column->addSpacing(Spacing::fieldsDown);
    column->addWidget(password_);
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

TextField* LoginView::firstField() const
{
    return model_->isRegistering.value() ? name_ : email_;
}

/// Filling in goes on where it begins in that mode, unless the person is choosing with the arrow keys.
void LoginView::chooseMode(bool registering)
{
    model_->isRegistering = registering;
    const QWidget* segment = QApplication::focusWidget();
    if (segment && FocusRing::passedOnFrom(segment) == Qt::MouseFocusReason)
        firstField()->setFocus(Qt::OtherFocusReason);
}

void LoginView::submit()
{
    launch(model_->submit());
}

void LoginView::closeAlert()
{
    model_->dismissAlert();
    const std::optional<LoginModel::Retry> retry = model_->takeRetry();
    if (!retry)
        return;
    switch (retry->field) {
    case LoginModel::Field::name:
        return FaultMark::leadTo(name_, retry->fault);
    case LoginModel::Field::email:
        return FaultMark::leadTo(email_, retry->fault);
    case LoginModel::Field::password:
        return FaultMark::leadTo(password_, retry->fault);
    }
}

void LoginView::showEvent(QShowEvent*)
{
    if (!std::exchange(wasShown_, true))
        firstField()->setFocus(Qt::OtherFocusReason);
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
    welcome_->setLength(width() < Type::scaled(fullWelcomeFrom) ? WelcomePanel::Length::brief
            : compact                                           ? WelcomePanel::Length::compact
                                                                : WelcomePanel::Length::full);
    welcome_->setFixedWidth(welcomeWidth);
    // Under large text the form comes first.
    welcome_->setVisible(width() - welcomeWidth >= form_->widget()->minimumSizeHint().width());
}
