#include "Account/SettingsCards.h"

#include "Accessibility.h"
#include "Account/SettingsContentModel.h"
#include "Bindings.h"
#include "Components/Card.h"
#include "Components/Chip.h"
#include "Components/FeatureLine.h"
#include "Components/PlainLabel.h"
#include "Components/PrimaryButton.h"
#include "Components/SecondaryButton.h"
#include "Components/SectionTitle.h"
#include "Components/SecureField.h"
#include "Components/SegmentedControl.h"
#include "Components/SoftDivider.h"
#include "Components/StackingRow.h"
#include "Components/Switch.h"
#include "Launch.h"
#include "Layouts.h"
#include "Lists/WorkButtons.h"

using namespace Qt::StringLiterals;

using Work = EditPaneModel::Work;

namespace {

constexpr int betweenParts = 16;
constexpr int betweenLines = 12;
/// Of a field that shows a telephone number whole, with what parts it from the next.
constexpr int narrowestField = 106;
/// From the top of a line's chip to that of the switch beside it, so that their middles agree.
constexpr int switchInset = 6;

Card* titled(const QString& title, const QString& caption)
{
    auto* card = new Card;
    card->add(new SectionTitle(title, caption));
    Accessibility::setRole(card, QAccessible::Grouping);
    card->setAccessibleName(title);
    return card;
}

template <typename Field>
Field* field(const QString& caption, QProperty<QString>& property)
{
    auto* made = new Field(caption);
    bind(made, property);
    return made;
}

struct Share
{
    QWidget* field;
    int width; ///< in relation to that of the others
};

/// Fields beside one another, below one another where large text needs the width.
QWidget* row(std::initializer_list<Share> fields)
{
    auto* row = new StackingRow(Spacing::fieldsAcross, Spacing::fieldsDown);
    row->setStackedBelow(int(fields.size()) * narrowestField);
    for (const auto& [field, width] : fields)
        row->add(field, width);
    return row;
}

/// A button at the end of its card, which Enter in one of the fields stands for.
void addSubmit(
    Card* card, Button* button, const std::function<void()>& submit, std::initializer_list<TextField*> fields)
{
    QObject::connect(button, &Button::clicked, button, submit);
    for (const TextField* each : fields)
        QObject::connect(each, &TextField::returnPressed, button, &Button::click);
    auto* end = Layouts::row(0);
    end->addStretch();
    end->addWidget(button);
    card->add(end, betweenParts);
}

QWidget* appearance(SettingsContentModel& model)
{
    QList<SegmentedControl::Option> options;
    for (const AppAppearanceMode mode : SettingsContentModel::appearanceChoices())
        options += {title(mode), rawValue(mode)};
    auto* control = new SegmentedControl(u"Appearance"_s, options);
    follow(control, model.appearance.mode,
        [control](AppAppearanceMode mode) { control->setValue(rawValue(mode)); });
    QObject::connect(control, &SegmentedControl::valueChanged, &model, [&model](const QString& value) {
        if (const std::optional<AppAppearanceMode> mode = appAppearanceMode(value))
            model.appearance.choose(*mode);
    });
    auto* column = Layouts::column(0,
        {new PlainLabel(u"Appearance"_s, Type::strong),
            new PlainLabel(
                u"Choose a dedicated light or dark workspace, or follow your Mac's system appearance."_s,
                Type::body, Brand::steel)});
    column->addSpacing(betweenLines);
    column->addWidget(control);
    return Layouts::holding(column);
}

QWidget* startup(SettingsContentModel& model)
{
    const QString title = u"Open Quorvel when I sign in"_s;
    const QString note = u"Keeps the menu-bar booking shortcut available after restart or boot."_s;
    auto* control = new Switch(title);
    control->setLabelVisible(false);
    control->setAccessibleDescription(note);
    follow(control, model.launchAtLogin(), [control](bool on) { control->setValue(on); });
    QObject::connect(control, &Switch::valueChanged, &model, [control, &model](bool on) {
        if (on == model.launchAtLogin().value())
            return;
        model.setLaunchAtLogin(on);
        // Where the desktop refused, the switch springs back.
        control->setValue(model.launchAtLogin().value());
    });
    auto* row = Layouts::row(betweenLines);
    row->addWidget(new FeatureLine(u"power.circle.fill"_s, title, note), 1);
    auto* aside = Layouts::column(0);
    aside->addSpacing(switchInset);
    aside->addWidget(control);
    aside->addStretch();
    row->addLayout(aside);
    return Layouts::holding(row);
}

} // namespace

Card* SettingsCards::account(SettingsContentModel& model)
{
    auto* chip = new Chip({});
    auto* role = new PlainLabel({}, Type::sub);
    follow(role, model.context().auth.activeRole, [chip, role, &model](AppRole) {
        chip->setSystemImage(systemImage(model.role()));
        role->setText(title(model.role()));
    });
    auto* line = Layouts::row(betweenLines, {chip});
    line->addLayout(
        Layouts::column(0, {new PlainLabel(u"Active Role"_s, Type::caption, Brand::steel), role}), 1);
    Card* card = titled(u"Account"_s, u"Active workspace"_s);
    card->add(line, betweenParts);
    return card;
}

Card* SettingsCards::profile(SettingsContentModel& model)
{
    auto* name = field<TextField>(u"Full Name"_s, model.name);
    auto* email = field<TextField>(u"Email"_s, model.email);
    auto* phone = field<TextField>(u"Phone"_s, model.phone);
    auto* city = field<TextField>(u"City"_s, model.city);
    auto* state = field<TextField>(u"State"_s, model.state);
    auto* save = new PrimaryButton(u"Save Profile"_s, u"checkmark.circle.fill"_s);
    showWork(save, model, Work::profile);

    Card* card = titled(
        u"Profile"_s, u"This information is used for booking, session updates, and account records."_s);
    card->add(name, betweenParts);
    card->add(email, Spacing::fieldsDown);
    card->add(row({{phone, 4}, {city, 5}, {state, 3}}), Spacing::fieldsDown);
    addSubmit(card, save, [&model] { launch(model.saveProfile()); }, {name, email, phone, city, state});
    return card;
}

Card* SettingsCards::password(SettingsContentModel& model, TextField*& chosen)
{
    auto* current = field<SecureField>(u"Current Password"_s, model.currentPassword);
    chosen = field<SecureField>(u"New Password"_s, model.newPassword);
    auto* change = new SecondaryButton(u"Change Password"_s, u"key.fill"_s);
    showWork(change, model, Work::password);

    Card* card = titled(u"Password"_s, u"Choose a strong password you do not use anywhere else."_s);
    card->add(row({{current, 1}, {chosen, 1}}), betweenParts);
    addSubmit(card, change, [&model] { launch(model.changePassword()); }, {current, chosen});
    return card;
}

Card* SettingsCards::preferences(SettingsContentModel& model)
{
    Card* card = titled(u"Preferences"_s, u"Tune the desktop app for the way your office works."_s);
    card->add(appearance(model), betweenParts);
    card->add(new SoftDivider, betweenParts);
    card->add(startup(model), betweenParts);
    card->add(new SoftDivider, betweenParts);
    card->add(new FeatureLine(u"menubar.rectangle"_s, u"Menu Bar"_s,
                  u"Book and open sessions from the top status menu."_s),
        betweenParts);
    card->add(new FeatureLine(u"clock.fill"_s, u"Default Zone"_s, u"Scheduling defaults to New York time."_s),
        betweenLines);
    card->add(new SoftDivider, betweenParts);
    card->add(new PlainLabel(u"The app will return to login automatically if your secure session ends."_s,
                  Type::small, Brand::steel),
        betweenParts);
    return card;
}

Card* SettingsCards::about(SettingsContentModel& model)
{
    auto* support = new SecondaryButton(u"Contact Support"_s, u"envelope.fill"_s);
    auto* website = new SecondaryButton(u"Visit Website"_s, u"safari"_s);
    QObject::connect(support, &Button::clicked, &model, &SettingsContentModel::contactSupport);
    QObject::connect(website, &Button::clicked, &model, &SettingsContentModel::visitWebsite);
    auto* buttons = Layouts::row(Spacing::buttons, {support, website});
    buttons->addStretch();
    Card* card = titled(u"About Quorvel"_s,
        u"Remote notary booking, session tracking, and role-based desktop workflows for clients, notaries, "
        "businesses, and office staff."_s);
    card->add(buttons, betweenParts);
    return card;
}
