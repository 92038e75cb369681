#include "Shell/Sidebar.h"

#include "Accessibility.h"
#include "Components/Card.h"
#include "Components/Chip.h"
#include "Components/ComboBox.h"
#include "Components/LabeledField.h"
#include "Components/PlainLabel.h"
#include "Components/SidebarEntry.h"
#include "Layouts.h"
#include "Palette.h"
#include "PaneKeys.h"

#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int outerMargin = 12;
constexpr int headerTile = 40;
constexpr int textIndent = 8; ///< of the header and the headings, to where the entries' symbols begin
constexpr int betweenEntries = 2;

} // namespace

Sidebar::Sidebar(MainWindowModel& model, QWidget* parent)
    : ScrollPage(new QWidget, parent), model_(model), column_(Layouts::column(0)),
      shownSection_(model.selectedSection())
{
    widget()->setLayout(column_);
    column_->setContentsMargins(outerMargin, outerMargin, outerMargin, outerMargin);
    connect(&model_, &MainWindowModel::sidebarChanged, this, &Sidebar::update);
    rebuild();
}

/// Only other people or other roles change what there is to select. Whoever is among the entries when another
/// is selected, by a shortcut, goes along and hears of it; nobody else loses their place.
void Sidebar::update()
{
    const bool isAmongEntries
        = std::ranges::any_of(entries_, [](const auto& listed) { return listed.second->hasFocus(); });
    if (shownFor_ != audience())
        rebuild();
    for (const auto& [section, entry] : entries_) {
        entry->setChecked(section == model_.selectedSection());
        if (entry->isChecked())
            ensureWidgetVisible(entry);
    }
    const AppSection before = std::exchange(shownSection_, model_.selectedSection());
    if (isAmongEntries && before != shownSection_)
        focusSelected();
    // A role that was chosen and not switched to after all.
    if (rolePicker_)
        rolePicker_->setValue(rawValue(model_.context().auth.role()));
}

Sidebar::Audience Sidebar::audience() const
{
    const MainWindowModel::Header header = model_.header();
    QList<AppSection> sections;
    for (const MainWindowModel::Group& group : model_.groups())
        sections += group.sections;
    return {header.title, header.caption, header.systemImage, model_.switchableRoles(), sections};
}

void Sidebar::rebuild()
{
    const bool hadFocus = PaneKeys::focusWithin(this).has_value();
    // Choosing a role rebuilds the very picker that it is chosen in.
    const bool picksRole = rolePicker_ && rolePicker_->hasFocus();
    shownFor_ = audience();
    Layouts::clear(column_);
    entries_.clear();
    addHeader();
    addRoleSwitcher();
    for (const MainWindowModel::Group& group : model_.groups())
        addGroup(group);
    column_->addStretch();
    if (picksRole && rolePicker_)
        rolePicker_->setFocus(Qt::OtherFocusReason);
    else if (hadFocus)
        focusSelected();
}

void Sidebar::focusSelected()
{
    for (const auto& [section, entry] : entries_) {
        if (entry->isChecked())
            entry->setFocus(Qt::OtherFocusReason);
    }
}

int Sidebar::wholeTitlesWidth() const
{
    int widest = 0;
    for (const auto& [section, entry] : entries_)
        widest = std::max(widest, entry->sizeHint().width());
    return widest + 2 * outerMargin;
}

void Sidebar::addHeader()
{
    const MainWindowModel::Header header = model_.header();
    auto* name = new PlainLabel(header.title, Type::sub);
    auto* caption = new PlainLabel(header.caption, Type::small, Brand::steel);
    name->setFit(PlainLabel::Fit::elide);
    caption->setFit(PlainLabel::Fit::elide);

    auto* row = Layouts::row(12);
    row->setContentsMargins(textIndent, 0, 0, 0);
    row->addWidget(new Chip(header.systemImage, headerTile, Chip::Look::dark));
    auto* texts = Layouts::column(0, {name, caption});
    row->addLayout(texts, 1);
    row->setAlignment(texts, Qt::AlignVCenter);
    column_->addLayout(row);
    column_->addSpacing(outerMargin);
}

void Sidebar::addRoleSwitcher()
{
    const QList<AppRole> roles = model_.switchableRoles();
    if (roles.isEmpty())
        return;
    QList<ComboBox::Option> options;
    for (const AppRole role : roles)
        options += {title(role), rawValue(role), systemImage(role)};
    auto* picker = new ComboBox(options);
    rolePicker_ = picker;
    picker->setCompact(true);
    picker->setValue(rawValue(model_.context().auth.role()));
    connect(picker, &ComboBox::valueChanged, this, [this](const QString& value) {
        if (const std::optional<AppRole> role = appRole(value))
            model_.switchRole(*role);
    });

    auto* card = new Card(outerMargin);
    card->add(new PlainLabel(u"Active Workspace"_s, Type::group));
    auto* field = new LabeledField(u"Role"_s, picker, LabeledField::Placement::beside);
    field->layout()->setSpacing(8);
    card->add(field, 8);
    column_->addWidget(card);
    column_->addSpacing(4);
}

void Sidebar::addGroup(const MainWindowModel::Group& group)
{
    auto* heading = Layouts::column(0, {new PlainLabel(group.title, Type::group, Brand::steel)});
    heading->setContentsMargins(textIndent, 12, textIndent, 4);
    column_->addLayout(heading);
    auto* entries = Layouts::column(betweenEntries);
    for (const AppSection section : group.sections) {
        auto* entry = new SidebarEntry(title(section), systemImage(section));
        entry->setChecked(section == model_.selectedSection());
        connect(entry, &SidebarEntry::clicked, this, [this, section] { model_.select(section); });
        entries->addWidget(entry);
        entries_ += {section, entry};
    }
    auto* list = Layouts::holding(entries);
    Accessibility::setRole(list, QAccessible::List);
    list->setAccessibleName(group.title);
    column_->addWidget(list);
}

void Sidebar::paintEvent(QPaintEvent*)
{
    QPainter(viewport()).fillRect(viewport()->rect(), Palette::color(Brand::panel));
}
